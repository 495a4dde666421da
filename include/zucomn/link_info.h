#pragma once

#include "export.h"

#include <afxcoll.h>

// The link information file: pairs of a key and a value, one "key|value" a line, usually "LinkInfo.lif" in
// the system folder. A key may contain line ends and then takes several lines; a value holds no "|" and no
// line end. Trailing spaces of keys and values don't count when reading. The file is read as a table file is
// (see tables.h): "#" begins a comment line, "END" ends it.

/// Appends the value of each key, in the order of the keys: empty for a key that is not there, the first one
/// for a key that is there several times. Of the lines of a long key in the file only the last two count.
/// False, with nothing appended, when the file is missing or holds no records.
ZUCOMN_API bool ZuComn_GetLinkInfo(const wchar_t* path, const CStringArray& keys, CStringArray& values);

/// Merges pairs into the file: records with one of the keys are replaced in their place, the other pairs
/// follow the last record, before a line "END". Of a key given twice the first pair counts. There have to be
/// as many values as keys.
///
/// Refuses all pairs when one could not be read back: no key holds "|", more than one line end, a line that
/// begins with "#", a line end after nothing or after "END" (in any case), or white space at the start or end
/// of a line; no value holds "|" or a line end; neither holds the characters 0x0D, 0x1A and NUL. A key whose
/// characters the file's encoding reads back as others is refused too; a value is saved and reads back with
/// those (in code page 932 the wave dash U+301C as U+FF5E).
///
/// A line without "|" is taken for one of the key of the next record. Only the last of several such lines
/// stays, and none that no record follows. Records that don't change, comments and everything from "END" on
/// keep their bytes; blank lines are dropped. A new file is in code page 932, an old one keeps its encoding.
/// The old file stays as the backup: the path with "bak" after its last ".", for a path without "."
/// "LinkInfo.lif" in the system folder. Components of the path are separated by "\\" or "/".
///
/// True when the new file is in place. At any moment the path holds the whole old file or the whole new one;
/// a link there is followed, and the access rights stay. When only the last step fails, a message box says
/// so, and the backup and the temporary file ("__Temp.tmp" in the same folder, or "LinkInfo.tmp" in the
/// system folder for a bare name) stay. Any other failure leaves the old file, without a message; so does a
/// character that the file's encoding can't hold, and a line of more than 16 MiB in the old or the new file.
ZUCOMN_API bool ZuComn_SaveLinkInfo(const wchar_t* path, const CStringArray& keys,
                                    const CStringArray& values);
