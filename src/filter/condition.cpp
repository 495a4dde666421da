#include "condition.h"

#include "attributes/attribute_record.h"
#include "frame/plain_number.h"

#include <compare>

namespace zu {

namespace {

bool fits(Operator op, std::partial_ordering order) {
    switch (op) {
    case Operator::equal:
        return std::is_eq(order);
    case Operator::notEqual:
        return std::is_neq(order);
    case Operator::less:
        return std::is_lt(order);
    case Operator::lessOrEqual:
        return std::is_lteq(order);
    case Operator::greater:
        return std::is_gt(order);
    case Operator::greaterOrEqual:
        return std::is_gteq(order);
    }
    return false;
}

/// Values without an order, an empty one or a number and another text, are unequal.
std::partial_ordering compare(std::wstring_view value, const Comparison& comparison) {
    const std::optional<double> number = plainNumber(value);
    if (number && comparison.number)
        return *number <=> *comparison.number;
    const bool isOrdered = !value.empty() && !comparison.text.empty() && !number && !comparison.number;
    if (isOrdered || value == comparison.text)
        return value <=> std::wstring_view(comparison.text);
    return std::partial_ordering::unordered;
}

bool holds(const Comparison& comparison, const CStringArray& record) {
    const std::wstring_view value = itemValue(record, comparison.attribute);
    const bool isOrder = comparison.op != Operator::equal && comparison.op != Operator::notEqual;
    return !(isOrder && value.empty()) && fits(comparison.op, compare(value, comparison));
}

void apply(Connective connective, std::vector<bool>& results) {
    const bool right = results.back();
    if (connective == Connective::negation) {
        results.back() = !right;
        return;
    }
    results.pop_back();
    const bool left = results.back();
    results.back() = connective == Connective::conjunction ? left && right : left || right;
}

} // namespace

bool holds(const Condition& condition, const CStringArray& record) {
    std::vector<bool> results;
    for (const auto& step : condition.steps) {
        if (const auto* const comparison = std::get_if<Comparison>(&step))
            results.push_back(holds(*comparison, record));
        else
            apply(std::get<Connective>(step), results);
    }
    return results.empty() || results.back();
}

} // namespace zu
