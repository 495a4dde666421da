#pragma once

#include <zucomn/model/quantities.h>

#include <compare>
#include <vector>

namespace zu {

/// Orders rows by fields; see zucomn::Quantities.
class RowOrder {
public:
    explicit RowOrder(std::vector<zucomn::QuantityField> by) : by_(std::move(by)) {}

    bool operator()(const zucomn::QuantityRow& a, const zucomn::QuantityRow& b) const;

private:
    std::vector<zucomn::QuantityField> by_;
};

/// Empty texts, then numbers by value, then others by character code; equal numbers by their characters.
[[nodiscard]] std::strong_ordering compareFields(std::wstring_view a, std::wstring_view b);

} // namespace zu
