#pragma once

#include "export.h"

#include <afxcoll.h>

// The link information file: pairs of a key and a value, usually "LinkInfo.lif" in the system folder. A
// record is one line "key|value"; a key that contains line ends takes several lines. Values contain neither
// "|" nor line ends. Trailing spaces of keys and values are ignored. Files are read as table files are, see
// tables.h: lines that begin with "#" are comments, a line "END" ends the records.

/// Appends the value of each key in order: an empty text for a missing key, the first value of a repeated
/// one. Only the last two lines of a key in the file count. Returns true on success, false with nothing
/// appended when the file is missing or has no records.
ZUCOMN_API bool ZuComn_GetLinkInfo(const wchar_t* path, const CStringArray& keys, CStringArray& values);

/// Merges pairs into the file. Records with one of the keys are replaced in place; new pairs are inserted
/// after the last record, before a line "END". The first pair of a repeated key counts. There must be
/// at least as many values as keys.
///
/// All pairs are rejected when one could not be read back. A key must not contain "|", more than one line
/// end, a line that begins with "#", a line end at its start or after "END" (in any case), or white space at
/// the start or end of a line. A value must not contain "|" or a line end. Neither may contain the characters
/// 0x0D, 0x1A and NUL. Some encodings convert characters to equivalent ones, such as the wave dash U+301C to
/// U+FF5E in code page 932: such keys are rejected, such values are saved with the equivalent characters.
///
/// A line without "|" belongs to the key of the next record. Of several such lines only the last is kept, and
/// none at the end of the file. Unchanged records, comments, and everything from "END" on are preserved
/// verbatim; blank lines are removed. A new file is in code page 932; an existing one keeps its encoding. The
/// previous file is kept as a backup: the path with "bak" after its last ".", or "LinkInfo.lif" in the system
/// folder for a path without ".". Components of the path are separated by "\\" or "/".
///
/// Returns true when the new file is in place. At any moment the path holds either the complete old or the
/// complete new file. Symbolic links are followed and access rights preserved. When only the last step fails,
/// a message box reports it, and the backup and the temporary file remain ("__Temp.tmp" in the same folder,
/// "LinkInfo.tmp" in the system folder for a path without a folder). All other failures leave the old file
/// unchanged and show no message, among them characters that the file's encoding cannot represent and lines
/// of more than 16 MiB.
ZUCOMN_API bool ZuComn_SaveLinkInfo(const wchar_t* path, const CStringArray& keys,
                                    const CStringArray& values);
