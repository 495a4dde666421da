#include <zucomn/attributes.h>

#include "attribute_rows.h"
#include "frame/environment.h"
#include "frame/line_splitter.h"

#include <zucomn/frame.h>
#include <zucomn/settings.h>
#include <zucomn/tables.h>

#include <algorithm>
#include <memory>

namespace {

int lastSeparator(const CString& path) {
    return std::max(path.ReverseFind(L'\\'), path.ReverseFind(L'/'));
}

CString fileName(const CString& path) {
    return path.Mid(lastSeparator(path) + 1);
}

bool hasExtension(const CString& path, const wchar_t* extension) {
    return path.Right(4).CompareNoCase(extension) == 0;
}

bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

/// Returns the index of the suffix "-NN." that numbers the drawings of one part; -1 when there is none.
int variantSuffix(const CString& name) {
    for (int dash = name.Find(L'-'); dash >= 0; dash = name.Find(L'-', dash + 1))
        if (dash + 3 < name.GetLength() && isDigit(name[dash + 1]) && isDigit(name[dash + 2]) &&
            name[dash + 3] == L'.')
            return dash;
    return -1;
}

CString withoutExtension(const CString& name) {
    const int dot = name.ReverseFind(L'.');
    return dot < 0 ? name : name.Left(dot);
}

CString baseName(const CString& name) {
    const int suffix = hasExtension(name, L".dxf") ? variantSuffix(name) : -1;
    return suffix < 0 ? withoutExtension(name) : name.Left(suffix);
}

CString inFolderOf(const CString& path, const CString& name) {
    const int separator = lastSeparator(path);
    return separator < 0 ? name : path.Left(separator) + L"\\" + name;
}

/// Returns the attribute file, or a file of its name in the part folders of the settings; empty when there is
/// none.
CString findAttributeFile(const CString& path) {
    if (ZuComn_findFile(path) != 0)
        return path;
    for (const wchar_t* const key : {zu::kRouteParts, zu::kStandardParts}) {
        const CString folder = zu::environmentSetting(key).value_or(CString());
        if (folder.IsEmpty())
            continue;
        CString candidate = folder + L"\\" + fileName(path);
        if (ZuComn_findFile(candidate) != 0)
            return candidate;
    }
    return {};
}

} // namespace

CString CAttributeData::GetCsvFileName(const CString& partFile) {
    if (hasExtension(partFile, L".csv") || hasExtension(partFile, L".csw"))
        return partFile;
    return inFolderOf(partFile, baseName(fileName(partFile)) + L".csv");
}

CString CAttributeData::GetPartsName(const CString& partFile) {
    return withoutExtension(fileName(GetCsvFileName(partFile)));
}

int CAttributeData::findFile(const wchar_t* path) {
    return ZuComn_findFile(path);
}

bool CAttributeData::checkIndex(const wchar_t* columns, int column) {
    return zu::ColumnSelection(columns).keeps(column);
}

int CAttributeData::GetEnv(CString& destination, int kind, const wchar_t* iniFile, const wchar_t* section,
                           const wchar_t* key) {
    CString value;
    if (ZuComn_GetEnv(value, iniFile, section, key) != 0)
        return -1;
    if (kind == 0)
        destination = value;
    else
        destination.Format(L"%5.2f", _wtof(value));
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

int CAttributeData::AttributeFileReadData(const CString& partFile) {
    const CString path = findAttributeFile(GetCsvFileName(partFile));
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
