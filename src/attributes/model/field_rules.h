#pragma once

#include <afxcoll.h>

#include <string_view>

namespace zu {

/// The n-th field, counted from 1, of a "|"-separated text. Empty for n below 1; the text behind the last "|"
/// when fewer than n fields end in "|".
[[nodiscard]] CString attributeField(const CString& text, int n);
/// The same within the text.
[[nodiscard]] std::wstring_view attributeFieldIn(std::wstring_view text, int n);

/// True when the fourth field begins with "1".
[[nodiscard]] bool isEditable(const CString& text);

/// Column 1 of the first record whose columns 0 and 2 equal the texts, case ignored. False, with `code`
/// untouched, when there is none; records without these columns are passed over.
bool findIdCode(CString& code, const CPtrArray& table, const CString& first, const CString& third);

} // namespace zu
