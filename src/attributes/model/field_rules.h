#pragma once

#include <afxcoll.h>

#include <string_view>

namespace zu {

/// Returns field n, counted from 1, of a "|"-separated text: empty for n < 1, the text after the last "|"
/// when fewer than n fields end in "|".
[[nodiscard]] CString attributeField(const CString& text, int n);
/// Returns the field as a view into the text.
[[nodiscard]] std::wstring_view attributeFieldIn(std::wstring_view text, int n);

/// Returns true when `text` contains `part`, ignoring case; an empty part is contained in every text.
[[nodiscard]] bool containsText(const CString& text, const CString& part);

/// Returns false for a value that contains "|" or a line end, which records and lines cannot represent.
[[nodiscard]] bool canHold(const CString& value);

/// Returns true when the fourth field begins with "1".
[[nodiscard]] bool isEditable(const CString& text);

/// Copies column 1 of the first record whose columns 0 and 2 equal `first` and `third`, ignoring case.
/// Records of fewer than three columns are skipped. Returns false with `code` untouched when there is none.
bool findIdCode(CString& code, const CPtrArray& table, const CString& first, const CString& third);

} // namespace zu
