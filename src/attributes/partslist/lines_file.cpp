#include "lines_file.h"

#include "attribute_lines.h"
#include "state/library_state.h"

#include <afx.h>

#include <string_view>

namespace zu {

namespace {

constexpr const wchar_t* kRouteAttributeFile = L"\\RootAttr.dat";

bool write(const CString& path, const CString& text) {
    CStdioFile file;
    if (!file.Open(path, CFile::modeCreate | CFile::modeWrite | CFile::shareDenyWrite | CFile::typeText))
        return false;
    try {
        file.WriteString(text);
        file.Close();
        return true;
    } catch (const CFileException&) {
        file.Abort();
        return false;
    }
}

} // namespace

bool isRouteAttributeFile(const CString& path) {
    CString normalised = path;
    normalised.Replace(L'/', L'\\');
    return normalised.Find(kRouteAttributeFile) >= 0;
}

bool routeAttributeMode() {
    return state().routeAttributeMode;
}

void setRouteAttributeMode(bool on) {
    state().routeAttributeMode = on;
}

bool readLines(const CString& path, CStringArray& lines) {
    CStringArray read;
    try {
        CStdioFile file;
        if (!file.Open(path, CFile::modeRead | CFile::shareDenyWrite | CFile::typeText))
            return false;
        for (CString line; file.ReadString(line);)
            appendItems(line, read);
    } catch (const CFileException&) {
        return false;
    }
    lines.Copy(read);
    return true;
}

bool saveLines(const CString& path, CStringArray& lines) {
    setRouteAttributeMode(isRouteAttributeFile(path));
    CStringArray padded;
    for (int i = 0; i < lines.GetSize(); ++i)
        padded.Add(paddedLine(lines[i]));
    const CString text = joinedLines(padded, routeAttributeMode());
    // The file's interface writes up to the first null character: the rest would be lost.
    if (text.view().find(L'\0') != std::wstring_view::npos || !write(path, text))
        return false;
    lines.Copy(padded);
    return true;
}

} // namespace zu
