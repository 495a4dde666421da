#pragma once

#include <afxcoll.h>

#include <vector>

namespace zu {

/// Formats a number as the mode of a combo box requires; see ZuComn_ComboBoxAdd.
[[nodiscard]] CString comboNumber(double value, int mode);

/// Returns the numbers of a list and one more, sorted ascending and formatted as the mode requires.
[[nodiscard]] std::vector<CString> withNumber(const std::vector<CString>& items, const CString& added,
                                              int mode);

} // namespace zu
