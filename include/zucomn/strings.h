#pragma once

#include "export.h"

#include <afxcoll.h>

class CComboBox;

/// Cuts a text at every separator into fields trimmed of white space on both sides; the list is emptied
/// first. A text without the separator is one field, not trimmed. Returns the number of fields.
ZUCOMN_API int ZuComn_SeparateString(const wchar_t* text, CStringArray& fields, wchar_t separator);

/// Cuts a text at the first character of `separator` into fields numbered from 1 and keeps those that the
/// column list (decimal numbers separated by commas; null: all) names, trimmed of trailing spaces; the list
/// is emptied first. 0 when a field was stored, else -1; without a text or a separator nothing is stored.
ZUCOMN_API int ZuComn_GetSplitString(const wchar_t* text, CStringArray& fields, const wchar_t* columns,
                                     const wchar_t* separator);

/// Takes a path apart. Each buffer that is given must hold MAX_PATH characters; a longer part is cut to fit,
/// its end left out, so that no path writes beyond the buffers.
/// name: after the last "\\", empty without one. title: between the last "\\" and the last ".", empty when
/// there is no such piece. extension: after the last "." of the whole path, wherever it lies; empty when
/// there is none or it is the first character. directory: the first level + 1 components (the drive counts as
/// one) without the trailing "\\"; the whole directory when it has fewer.
ZUCOMN_API void ZuComn_ExtractFileName(wchar_t* directory, wchar_t* name, wchar_t* title, wchar_t* extension,
                                       const wchar_t* path, int level);

/// Rounds to a whole number as the product does: adds 0.5 to values from 0 on, subtracts 0.4 from negative
/// ones, and truncates towards zero. So -2.5 gives -2.
ZUCOMN_API double ZuComn_C4O5I(double value);

/// Returns an angle in degrees brought into [0, 360) by at most 100 steps of 360; unchanged when that is not
/// enough.
ZUCOMN_API double ZUComn_AngleAptitude(double degrees);

/// Returns a number as text with `precision` digits after the point (negative: as the option "実数精度桁数"
/// says), counted as significant digits beyond those of the whole part. A magnitude of at most 0.001 is
/// written with at most `precision` places, zeros at the end left out; from 17 places on as the others;
/// without a digit within the precision as zero with one place less ("0.00" for 3). Precision 0 gives the
/// whole number, however large: cut off towards zero, or with the rounding flag, which matters here only,
/// rounded with halves away from zero.
ZUCOMN_API CString ZuComn_RealFormat(double value, int precision, int rounding);

/// Adds a number to a combo box whose list is kept sorted and written in one style: mode 0 whole numbers, 1
/// to 98 that many digits, 99 one decimal place without ".0", above 99 two, negative the text as given and
/// the list as many digits as the settings say. A text that the list has, as given or in that style, changes
/// nothing. Returns the place of the text in the list; -1 when it was added and the style wrote it
/// differently.
ZUCOMN_API int ZuComn_ComboBoxAdd(CComboBox& box, const wchar_t* text, int mode);
