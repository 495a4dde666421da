#pragma once

#include "condition.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zu {

/// A token of a condition.
struct ConditionToken {
    enum class Kind {
        text,
        comparison,
        conjunction,
        disjunction,
        negation,
        opening,
        closing,
        unclosedQuote,
        unknown,
        end
    };

    Kind kind = Kind::end;
    std::size_t place = 0; ///< Index of its first character.
    std::wstring text;     ///< A text, without its quotes.
    Operator op = Operator::equal;
};

/// Splits a condition into its tokens, the last of which is its end or what cannot be read.
[[nodiscard]] std::vector<ConditionToken> conditionTokens(std::wstring_view text);

} // namespace zu
