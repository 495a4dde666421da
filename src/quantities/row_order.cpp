#include "row_order.h"

#include "frame/plain_number.h"

#include <zucomn/model/elements.h>

#include <algorithm>
#include <optional>

namespace zu {

namespace {

using zucomn::QuantityField;
using zucomn::QuantityRow;

std::strong_ordering compareCodes(int a, int b) {
    if (a == b)
        return std::strong_ordering::equal;
    return zucomn::elementKindName(a) <=> zucomn::elementKindName(b);
}

std::strong_ordering compareBy(QuantityField field, const QuantityRow& a, const QuantityRow& b) {
    switch (field) {
    case QuantityField::kind:
        return a.kind <=> b.kind;
    case QuantityField::group:
        return compareFields(a.group, b.group);
    case QuantityField::what:
        return compareCodes(a.code, b.code);
    case QuantityField::block:
        return compareFields(a.block, b.block);
    case QuantityField::size:
        return compareFields(a.size, b.size);
    case QuantityField::use:
        return compareFields(a.use, b.use);
    }
    return std::strong_ordering::equal;
}

int rankOf(std::wstring_view text, const std::optional<double>& number) {
    return text.empty() ? 0 : number ? 1 : 2;
}

} // namespace

std::strong_ordering compareFields(std::wstring_view a, std::wstring_view b) {
    if (a == b)
        return std::strong_ordering::equal;
    const std::optional<double> left = plainNumber(a);
    const std::optional<double> right = plainNumber(b);
    if (const auto order = rankOf(a, left) <=> rankOf(b, right); std::is_neq(order))
        return order;
    if (left && *left != *right)
        return *left < *right ? std::strong_ordering::less : std::strong_ordering::greater;
    return a <=> b;
}

bool RowOrder::operator()(const QuantityRow& a, const QuantityRow& b) const {
    for (const QuantityField field : by_)
        if (const auto order = compareBy(field, a, b); std::is_neq(order))
            return std::is_lt(order);
    return false;
}

} // namespace zu
