#pragma once

#include "export.h"

#include <afxcoll.h>

// Utilities for texts, paths and numbers. An output may be the input itself. No function shows a message.

class CComboBox;

/// Splits a text at every separator into fields trimmed of white space on both sides. A text without the
/// separator is stored untrimmed as one field. Empties `fields` first. Returns the number of fields.
ZUCOMN_API int ZuComn_SeparateString(const wchar_t* text, CStringArray& fields, wchar_t separator);

/// Splits a text at the first character of `separator` and stores the fields whose numbers, counted from 1,
/// are in `columns` (decimal, separated by commas; null: all), trimmed of trailing spaces. Empties `fields`
/// first. Returns 0 when at least one field was stored, else -1; an empty text or separator stores none.
ZUCOMN_API int ZuComn_GetSplitString(const wchar_t* text, CStringArray& fields, const wchar_t* columns,
                                     const wchar_t* separator);

/// Splits a path into its parts. Each output is null or a buffer of MAX_PATH characters; longer parts are
/// truncated.
///
/// - `name`: the part after the last "\\"; empty without "\\".
/// - `title`: the part between the last "\\" and the last "."; empty unless both occur in this order.
/// - `extension`: the part after the last "." of the whole path, even in a folder name; empty without "." and
///   when "." is the first character.
/// - `directory`: the first `level` + 1 components (the drive counts as one) without the trailing "\\"; the
///   whole directory when it has fewer.
ZUCOMN_API void ZuComn_ExtractFileName(wchar_t* directory, wchar_t* name, wchar_t* title, wchar_t* extension,
                                       const wchar_t* path, int level);

/// Returns a value rounded to an integer by the product's rule: add 0.5 to values >= 0, subtract 0.4 from
/// negative values, then truncate towards zero. For example, -2.5 gives -2.
ZUCOMN_API double ZuComn_C4O5I(double value);

/// Returns an angle in degrees normalised to [0, 360). Returns it unchanged when 100 steps of 360 degrees do
/// not suffice.
ZUCOMN_API double ZUComn_AngleAptitude(double degrees);

/// Formats a number as decimal text. A negative `precision` stands for the option "実数精度桁数".
///
/// - Precision 0: the integer part, of any length. It is truncated towards zero, or, with a nonzero
///   `rounding`, rounded with halves away from zero. Other precisions ignore `rounding`.
/// - Magnitudes up to 0.001, except 0: at most `precision` decimal places, without trailing zeros; when all
/// of
///   these places are 0, zero with one place less ("0.00" for 3). Values that need more than 16 places are
///   formatted like larger ones.
/// - Other values: as many significant digits as the integer part has, plus `precision`.
ZUCOMN_API CString ZuComn_RealFormat(double value, int precision, int rounding);

/// Adds a number to a combo box and rewrites its list: sorted, and formatted by `mode`. Mode 0 formats
/// integers; 1 to 98 that number of digits as ZuComn_RealFormat does; 99 one decimal place without ".0";
/// above 99 two decimal places; a negative mode the digits of the option "実数精度桁数".
///
/// The list is unchanged when it contains the text as given or, unless the mode is negative, as formatted.
/// Returns the index of the text found or added; -1 when it was added in another form than given.
ZUCOMN_API int ZuComn_ComboBoxAdd(CComboBox& box, const wchar_t* text, int mode);
