#pragma once

#include <afxwin.h>

#include <vector>

namespace zu {

/// The drop-down list of a property item: offers the choices and, first, the current value when it is not one
/// of them, so that the value stays in sight. The current value is selected and has a mark in the open list.
class ChoiceBox : public CComboBox {
public:
    /// Fills the list of the created box and selects the current value.
    void offer(const CString& current, const std::vector<CString>& choices);

    void DrawItem(LPDRAWITEMSTRUCT draw) override;
    void MeasureItem(LPMEASUREITEMSTRUCT measure) override;

private:
    int current_ = 0; ///< Index of the current value.
};

} // namespace zu
