#pragma once

#include <afxcoll.h>

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zu {

enum class Operator { equal, notEqual, less, lessOrEqual, greater, greaterOrEqual };

/// An attribute's value compared with a constant.
struct Comparison {
    std::wstring attribute;
    Operator op = Operator::equal;
    std::wstring text;
    std::optional<double> number; ///< When the text is one.
};

enum class Connective { conjunction, disjunction, negation };

/// The comparisons of a condition, each connective after its operands, so that neither evaluation nor
/// destruction recurses.
struct Condition {
    std::vector<std::variant<Comparison, Connective>> steps;
};

/// Returns whether the condition holds for the strings of an attribute record.
[[nodiscard]] bool holds(const Condition& condition, const CStringArray& record);

} // namespace zu
