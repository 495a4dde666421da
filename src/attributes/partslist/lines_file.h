#pragma once

#include <afxcoll.h>

namespace zu {

/// True for a file of route attributes: its path contains "\RootAttr.dat" ("/" parts a path as "\" does).
[[nodiscard]] bool isRouteAttributeFile(const CString& path);

/// Route-attribute mode: the library's one switch for the file in hand. False at start.
[[nodiscard]] bool routeAttributeMode();
void setRouteAttributeMode(bool on);

/// Reads the attribute lines of a file. False, with `lines` untouched, when it can't be read.
bool readLines(const CString& path, CStringArray& lines);

/// Sets route-attribute mode by the path and replaces the file as a whole by the lines, which are padded to
/// their six fields. In route-attribute mode each line ends with a line end; otherwise nothing stands between
/// them. A new file is in code page 932, an old one keeps its encoding. False when something can't be
/// written, or a character not be held by the encoding: file and lines are then as they were.
bool saveLines(const CString& path, CStringArray& lines);

} // namespace zu
