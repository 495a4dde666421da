#pragma once

#include "export.h"

#include <afxcoll.h>

// Table files: one record a line, fields separated by one character. "#" begins a comment line, "END" ends
// the table. Trailing spaces of lines and fields don't count. Files are in code page 932 unless a byte-order
// mark says UTF-8 or UTF-16 (little endian).
//
// A file that fails while it is read, or holds a line of more than 16 MiB, gives an empty list; what follows
// the table's end doesn't count. Equal fields may share their characters until one of them is changed. Files
// of more than 256 KiB are read by up to eight threads, which end before the call returns.
//
// The first `skip` lines are ignored. `columns` lists the fields to keep (decimal numbers separated by
// commas; null: all). The first character of `separator` separates the fields; null: that of the settings.
// Without one, or when the file can't be opened, the list stays as it was. The last argument is not used.

/// Appends the kept fields of all records one after the other; the list is emptied once the file is open.
/// 0 when a field was stored, else -1.
ZUCOMN_API int ZuComn_ReadConfigFile(const wchar_t* path, CStringArray& fields, int skip,
                                     const wchar_t* columns, const wchar_t* separator, int unused = 0);

/// Adds a new CStringArray for each record, also for one without kept fields; free them with
/// ZuComn_RemoveAllFree. The list is emptied (its elements not freed) once the file is open. 0 when a record
/// was stored, else -1.
ZUCOMN_API int ZuComn_ReadConfigFile(const wchar_t* path, CPtrArray& records, int skip,
                                     const wchar_t* columns, const wchar_t* separator, int unused = 0);

/// Deletes every element (a CObject, such as the record lists above) that is not null and empties the list.
ZUCOMN_API void ZuComn_RemoveAllFree(CPtrArray& list);

/// 1 when the file can be opened for reading, else 0.
ZUCOMN_API int ZuComn_findFile(const wchar_t* path);
