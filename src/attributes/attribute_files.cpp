#include <zucomn/attributes.h>

#include "attribute_rows.h"
#include "frame/line_splitter.h"

#include <zucomn/frame.h>
#include <zucomn/tables.h>

#include <algorithm>
#include <array>
#include <memory>

namespace {

constexpr const wchar_t* kSettingsSection = L"環境設定";

int lastSeparator(const CString& path) {
    return std::max(path.ReverseFind(L'\\'), path.ReverseFind(L'/'));
}

CString fileName(const CString& path) {
    return path.Mid(lastSeparator(path) + 1);
}

bool endsWith(const CString& text, const wchar_t* ending) {
    return text.Right(4).CompareNoCase(ending) == 0;
}

bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

/// Where "-NN." begins that marks one of several drawings of a part; -1 when nothing does.
int variantMark(const CString& name) {
    for (int dash = name.Find(L'-'); dash >= 0; dash = name.Find(L'-', dash + 1))
        if (dash + 3 < name.GetLength() && isDigit(name[dash + 1]) && isDigit(name[dash + 2]) &&
            name[dash + 3] == L'.')
            return dash;
    return -1;
}

CString withoutEnding(const CString& name) {
    const int dot = name.ReverseFind(L'.');
    return dot < 0 ? name : name.Left(dot);
}

CString baseName(const CString& name) {
    const int mark = endsWith(name, L".dxf") ? variantMark(name) : -1;
    return mark < 0 ? withoutEnding(name) : name.Left(mark);
}

/// The path of another file in the same folder.
CString beside(const CString& path, const CString& name) {
    const int separator = lastSeparator(path);
    return separator < 0 ? name : path.Left(separator) + L"\\" + name;
}

} // namespace

CString CAttributeData::GetCsvFileName(const CString& partFile) {
    if (endsWith(partFile, L".csv") || endsWith(partFile, L".csw"))
        return partFile;
    return beside(partFile, baseName(fileName(partFile)) + L".csv");
}

CString CAttributeData::GetPartsName(const CString& partFile) {
    return withoutEnding(fileName(GetCsvFileName(partFile)));
}

int CAttributeData::findFile(const wchar_t* path) {
    return ZuComn_findFile(path);
}

bool CAttributeData::checkIndex(const wchar_t* columns, int column) {
    return zu::ColumnSelection(columns).keeps(column);
}

int CAttributeData::GetEnv(CString& destination, int kind, const wchar_t* iniFile, const wchar_t* section,
                           const wchar_t* key) {
    std::array<wchar_t, 512> buffer{};
    GetPrivateProfileStringW(section, key, L"error", buffer.data(), static_cast<DWORD>(buffer.size()),
                             iniFile);
    if (_wcsicmp(buffer.data(), L"error") == 0)
        return -1;
    if (kind == 0)
        destination = buffer.data();
    else
        destination.Format(L"%5.2f", _wtof(buffer.data()));
    return 0;
}

int CAttributeData::ReadConfigFile(const wchar_t* path, CPtrArray& rows, int linesToSkip,
                                   const wchar_t* columns, const wchar_t* separator, int flag) {
    CPtrArray read;
    if (separator == nullptr || ZuComn_ReadConfigFile(path, read, linesToSkip, columns, separator, flag) != 0)
        return -1;
    rows.Append(read);
    return 0;
}

namespace {

/// The attribute file itself, or one of its name in the folders of parts; empty when there is none.
CString findAttributeFile(const CString& path, int (*isThere)(const wchar_t*),
                          int (*setting)(CString&, int, const wchar_t*, const wchar_t*, const wchar_t*)) {
    if (isThere(path) != 0)
        return path;
    for (const wchar_t* const key : {L"経路部品", L"標準部品"}) {
        CString folder;
        if (setting(folder, 0, ZUCE_INIFILE, kSettingsSection, key) != 0 || folder.IsEmpty())
            continue;
        CString candidate = folder + L"\\" + fileName(path);
        if (isThere(candidate) != 0)
            return candidate;
    }
    return {};
}

} // namespace

int CAttributeData::AttributeFileReadData(const CString& partFile) {
    const CString path = findAttributeFile(GetCsvFileName(partFile), &findFile, &GetEnv);
    CPtrArray lines;
    if (path.IsEmpty() || ReadConfigFile(path, lines, 0, nullptr, L"|", 0) != 0) {
        DeleteCPtrArray1(lines);
        return -1;
    }
    auto table = std::make_unique<CPtrArray>();
    for (int i = 0; i < lines.GetSize(); ++i) {
        auto row = std::make_unique<CStringArray>();
        SetArrayData(*row, GetPartsName(partFile), CString(), zu::stringsAt(lines, i));
        table->Add(row.release());
    }
    DeleteCPtrArray1(lines);
    m_entities.Add(table.release());
    return 0;
}

int CAttributeData::AttributeFileReadData2(const CString& partFile) {
    if (AttributeFileReadData(partFile) != 0)
        return -1;
    const CPtrArray& table = zu::tableAt(m_entities, m_entities.GetUpperBound());
    for (int i = 0; i < table.GetSize(); ++i)
        if (CString& number = zu::stringsAt(table, i)[zu::kNumberColumn]; number.IsEmpty())
            number.Format(L"%d", i + 1);
    return 0;
}

int CAttributeData::ReadData(const CString& partFile, int mode) {
    InitData(mode);
    return AttributeFileReadData(partFile);
}

int CAttributeData::ReadData2(const CString& partFile, int mode) {
    InitData(mode);
    return AttributeFileReadData2(partFile);
}
