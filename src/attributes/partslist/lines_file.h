#pragma once

#include <afxcoll.h>

namespace zu {

/// Returns true for a file of route attributes: the path contains "\RootAttr.dat" or "/RootAttr.dat".
[[nodiscard]] bool isRouteAttributeFile(const CString& path);

/// Reads the attribute lines of a file. Returns false with `lines` untouched when it cannot be read.
bool readLines(const CString& path, CStringArray& lines);

/// Pads the lines to six fields and replaces the whole file by them: with a line end after each line for a
/// file of route attributes, else joined without line ends. A new file is in code page 932; an existing one
/// keeps its encoding. A file that holds these lines already is not written. Returns false, with file and
/// lines unchanged, when the file cannot be written, its encoding cannot represent a character, or a line
/// holds a null character or a line end.
bool saveLines(const CString& path, CStringArray& lines);

} // namespace zu
