#pragma once

#include <afxcoll.h>

#include <vector>

namespace zu {

/// A number in the style of a combo box's mode; see ZuComn_ComboBoxAdd.
[[nodiscard]] CString comboNumber(double value, int mode);

/// The texts of a list with one number more: sorted ascending, all written in the mode's style.
[[nodiscard]] std::vector<CString> withNumber(const std::vector<CString>& items, const CString& added,
                                              int mode);

} // namespace zu
