#pragma once

#include "export.h"

#include <afxcoll.h>

// Table files: one record per line, fields separated by a separator character. Lines that begin with "#" are
// comments, a line "END" (in any case) ends the table; later lines are ignored. Blank lines, and trailing
// spaces of lines and fields, are ignored. Files are in code page 932 unless a byte-order mark specifies
// UTF-8 or UTF-16 (little endian).
//
// A read error, and a line of more than 16 MiB, yield an empty list. Equal fields may share their characters
// until one of them is changed. Files of more than 256 KiB are parsed by up to eight threads, which end
// before the call returns.
//
// The readers take these arguments: `skip`, the number of lines to skip first; `columns`, the numbers of the
// fields to keep (decimal, from 1, separated by commas; null: all); `separator`, whose first character
// separates the fields (null: the separator of the settings). The last argument is ignored. Without a
// separator, or when the file cannot be opened, the list is untouched.

/// Reads a table file into one list: the kept fields of all records, one after another. The list is emptied
/// once the file is open. Returns 0 when at least one field was stored, else -1.
ZUCOMN_API int ZuComn_ReadConfigFile(const wchar_t* path, CStringArray& fields, int skip,
                                     const wchar_t* columns, const wchar_t* separator, int unused = 0);

/// Reads a table file into a list of records, each a new CStringArray that the caller frees with
/// ZuComn_RemoveAllFree; records without kept fields are included. The list is emptied once the file is open,
/// without deleting its elements. Returns 0 when at least one record was stored, else -1.
ZUCOMN_API int ZuComn_ReadConfigFile(const wchar_t* path, CPtrArray& records, int skip,
                                     const wchar_t* columns, const wchar_t* separator, int unused = 0);

/// Deletes all elements of a list and empties it. Elements are CObject pointers, such as the records above,
/// or null.
ZUCOMN_API void ZuComn_RemoveAllFree(CPtrArray& list);

/// Returns 1 when the file can be opened for reading, else 0.
ZUCOMN_API int ZuComn_findFile(const wchar_t* path);
