#pragma once

#include <io.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <wchar.h>

namespace zuhost::platform {

/// Paths begin with a drive: "C:/folder". Elsewhere a drive is dropped.
inline constexpr bool kPathsHaveDrives = true;

} // namespace zuhost::platform

// The host has functions of its own in place of these of the C library: full-width digits, formats with texts
// of the framework, paths in UTF-8 and errors instead of an end of the program are alike on every system.
// Other headers of the C library that declare them are included above.
#define _itow zuhost_itow
#define _itow_s zuhost_itow_s
#define _snwprintf zuhost_snwprintf
#define _snwprintf_s zuhost_snwprintf_s
#define _waccess zuhost_waccess
#define _wcsdup zuhost_wcsdup
#define _wcsicmp zuhost_wcsicmp
#define _wcslwr zuhost_wcslwr
#define _wcslwr_s zuhost_wcslwr_s
#define _wcsnicmp zuhost_wcsnicmp
#define _wcsrev zuhost_wcsrev
#define _wcsupr zuhost_wcsupr
#define _wcsupr_s zuhost_wcsupr_s
#define _wfopen zuhost_wfopen
#define _wfopen_s zuhost_wfopen_s
#define _wmakepath zuhost_wmakepath
#define _wmakepath_s zuhost_wmakepath_s
#define _wsplitpath zuhost_wsplitpath
#define _wsplitpath_s zuhost_wsplitpath_s
#define _wtof zuhost_wtof
#define _wtoi zuhost_wtoi
#define _wtoi64 zuhost_wtoi64
#define _wtol zuhost_wtol
#define swprintf_s zuhost_swprintf_s
#define vswprintf_s zuhost_vswprintf_s
#define wcscat_s zuhost_wcscat_s
#define wcscpy_s zuhost_wcscpy_s
#define wcsncat_s zuhost_wcsncat_s
#define wcsncpy_s zuhost_wcsncpy_s
#define wcstok_s zuhost_wcstok_s

// A constant of the host, which has it as a typed one.
#undef _TRUNCATE
