#include "lines_file.h"

#include "attribute_lines.h"
#include "frame/text_view.h"

#include <afx.h>

#include <algorithm>
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
    } catch (CFileException* error) {
        error->Delete();
        file.Abort();
        return false;
    }
}

/// A line end would split the line, and the file's interface writes up to the first null character only.
bool canBeSaved(const CString& line) {
    return zu::view(line).find_first_of(std::wstring_view(L"\r\n\0", 3)) == std::wstring_view::npos;
}

/// Returns true when reading the file gives exactly the lines.
bool holds(const CString& path, const CStringArray& lines) {
    CStringArray read;
    return readLines(path, read) && std::equal(read.GetData(), read.GetData() + read.GetSize(),
                                               lines.GetData(), lines.GetData() + lines.GetSize());
}

} // namespace

bool isRouteAttributeFile(const CString& path) {
    CString normalised = path;
    normalised.Replace(L'/', L'\\');
    return normalised.Find(kRouteAttributeFile) >= 0;
}

bool readLines(const CString& path, CStringArray& lines) {
    CStringArray read;
    try {
        CStdioFile file;
        if (!file.Open(path, CFile::modeRead | CFile::shareDenyWrite | CFile::typeText))
            return false;
        for (CString line; file.ReadString(line);)
            appendItems(line, read);
    } catch (CFileException* error) {
        error->Delete();
        return false;
    }
    lines.Copy(read);
    return true;
}

bool saveLines(const CString& path, CStringArray& lines) {
    CStringArray padded;
    for (int i = 0; i < lines.GetSize(); ++i) {
        if (!canBeSaved(lines[i]))
            return false;
        padded.Add(paddedLine(lines[i]));
    }
    if (!holds(path, padded) && !write(path, joinedLines(padded, isRouteAttributeFile(path))))
        return false;
    lines.Copy(padded);
    return true;
}

} // namespace zu
