#include <zucomn/attributes.h>

#include "attribute_rows.h"

#include <zucomn/frame.h>
#include <zucomn/tables.h>

#include <algorithm>
#include <array>
#include <memory>

namespace {

constexpr const wchar_t* kSettingsSection = L"環境設定";

struct FilePath {
    CString folder; ///< Without the last separator; empty when the path has none.
    CString name;
};

FilePath takeApart(const CString& path) {
    const int separator = std::max(path.ReverseFind(L'\\'), path.ReverseFind(L'/'));
    return {path.Left(separator < 0 ? 0 : separator), path.Mid(separator + 1)};
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

CString joined(const CString& folder, const CString& name) {
    return folder.IsEmpty() ? name : folder + L"\\" + name;
}

/// The kept fields of a line, without the blanks at their ends.
std::unique_ptr<CStringArray> rowOf(const CString& line, wchar_t separator, const wchar_t* columns,
                                    bool (*keeps)(const wchar_t*, int)) {
    auto row = std::make_unique<CStringArray>();
    int start = 0;
    for (int column = 1; start >= 0; ++column) {
        const int end = line.Find(separator, start);
        CString field = end < 0 ? line.Mid(start) : line.Mid(start, end - start);
        if (keeps(columns, column))
            row->Add(field.TrimRight(L' '));
        start = end < 0 ? -1 : end + 1;
    }
    return row;
}

} // namespace

CString CAttributeData::GetCsvFileName(const CString& partFile) {
    if (endsWith(partFile, L".csv") || endsWith(partFile, L".csw"))
        return partFile;
    const FilePath path = takeApart(partFile);
    return joined(path.folder, baseName(path.name) + L".csv");
}

CString CAttributeData::GetPartsName(const CString& partFile) {
    return withoutEnding(takeApart(GetCsvFileName(partFile)).name);
}

int CAttributeData::findFile(const wchar_t* path) {
    return ZuComn_findFile(path);
}

bool CAttributeData::checkIndex(const wchar_t* columns, int column) {
    if (columns == nullptr)
        return true;
    const CString list(columns);
    int start = 0;
    for (CString piece = list.Tokenize(L",", start); start >= 0; piece = list.Tokenize(L",", start))
        if (_wtoi(piece) == column)
            return true;
    return false;
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
                                   const wchar_t* columns, const wchar_t* separator, int /*flag*/) {
    if (separator == nullptr || findFile(path) == 0)
        return -1;
    const int before = rows.GetSize();
    try {
        CStdioFile file;
        if (!file.Open(path, CFile::modeRead | CFile::shareDenyWrite | CFile::typeText))
            return -1;
        CString line;
        for (int i = 0; i < linesToSkip && file.ReadString(line); ++i) {
        }
        while (file.ReadString(line)) {
            line.TrimRight(L' ');
            const bool isComment = !line.IsEmpty() && line[0] == L'#';
            if (!line.IsEmpty() && !isComment)
                rows.Add(rowOf(line, *separator, columns, &checkIndex).release());
        }
    } catch (const CFileException&) {
        return -1;
    }
    return rows.GetSize() > before ? 0 : -1;
}

namespace {

/// The attribute file itself, or one of its name in the folders of parts; empty when there is none.
CString findAttributeFile(const CString& path, int (*isThere)(const wchar_t*),
                          int (*setting)(CString&, int, const wchar_t*, const wchar_t*, const wchar_t*)) {
    if (isThere(path) != 0)
        return path;
    for (const wchar_t* const key : {L"経路部品", L"標準部品"}) {
        CString folder;
        if (setting(folder, 0, ZUCE_INIFILE, kSettingsSection, key) != 0)
            continue;
        CString candidate = joined(folder, takeApart(path).name);
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
