#include <zucomn/attributes.h>

#include "attribute_rows.h"

#include <string>

namespace {

constexpr const wchar_t* kDumpFile = L"g:\\Temp\\Test.txt";

std::string encoded(const CString& text, UINT codePage) {
    const int length = text.GetLength();
    const int size = WideCharToMultiByte(codePage, 0, text, length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(codePage, 0, text, length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::string dumpLine(const CStringArray& row) {
    CString line;
    line.Format(L"No.%3d ", _wtoi(row[zu::kNumberColumn]));
    for (int column = 0; column < zu::kRowColumns; ++column)
        line += row[column];
    line += L"\r\n";
    const std::string bytes = encoded(line, CP_ACP);
    return bytes.empty() ? encoded(line, CP_UTF8) : bytes;
}

/// Replaces the text between the key and the next blank by a number; appends both when the key is missing.
void replaceNumber(CString& text, const wchar_t* key, double value) {
    CString number;
    number.Format(L"%5.2f", value);
    number.TrimLeft();
    const CString name(key);
    const int found = text.Find(name);
    if (found < 0) {
        text += (text.IsEmpty() ? CString() : CString(L" ")) + name + number;
        return;
    }
    const int start = found + name.GetLength();
    const int blank = text.Find(L' ', start);
    text = text.Left(start) + number + (blank < 0 ? CString() : text.Mid(blank));
}

} // namespace

void CAttributeData::TestCPtrArrayDisp2(const CPtrArray& table) {
    std::string lines;
    for (int i = 0; i < table.GetSize(); ++i)
        lines += dumpLine(zu::stringsAt(table, i));
    try {
        CFile file;
        if (!file.Open(kDumpFile, CFile::modeReadWrite | CFile::modeCreate | CFile::modeNoTruncate))
            return;
        file.SeekToEnd();
        file.Write(lines.data(), static_cast<UINT>(lines.size()));
        file.Close();
    } catch (CFileException* error) {
        error->Delete();
        // The dump is a debugging aid: a failure must not stop the caller.
        return;
    }
}

void CAttributeData::TestCPtrArrayDisp() {
    for (int i = 0; i < m_entities.GetSize(); ++i)
        TestCPtrArrayDisp2(zu::tableAt(m_entities, i));
}

int CAttributeData::GettoolTipData(const CString& text, const wchar_t* key, CString& out) {
    const CString name(key);
    const int found = text.IsEmpty() ? -1 : text.Find(name);
    if (found < 0)
        return -1;
    const CString rest = text.Mid(found + name.GetLength());
    const int blank = rest.Find(L' ');
    out = blank < 0 ? rest : rest.Left(blank);
    return 0;
}

void CAttributeData::toolTipStrUpDate(CString& text, double width, double height) {
    replaceNumber(text, L"W=", width);
    replaceNumber(text, L"H=", height);
}
