#pragma once

#include "../export.h"

#include <dbid.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zu {
struct Condition;
}

namespace zucomn {

/// A parsed condition on the attributes of an element, shared by its copies; without one every element
/// passes.
using Condition = std::shared_ptr<const zu::Condition>;

/// Why a condition cannot be parsed.
struct ConditionError {
    std::size_t place = 0; ///< Index of the character at fault; the length of the text for its end.
    std::wstring problem;
};

/// A condition, or why there is none.
struct ParsedCondition {
    Condition condition; ///< Empty when there is an error, and for a blank text.
    std::optional<ConditionError> error;
};

/// Parses a condition such as `S501=給気 and not (S302<300 or S302>=600)`.
///
/// A comparison is an attribute id, one of = != < <= > >=, and a text or number. `not` binds more closely
/// than `and`, and that more than `or`; their case does not matter. Quotes, ' or ", are necessary around a
/// text that holds blanks, operators, parentheses or quotes (a doubled quote stands for one), is empty, or is
/// one of these words.
///
/// Values are compared without the blanks around them: as numbers where both are decimal numbers, else as
/// texts, by character code. An attribute that an element lacks has an empty value. < <= > >= do not hold for
/// an empty value, nor between a number and another text, so that S302>=300 never finds "DN50".
[[nodiscard]] ZUCOMN_API ParsedCondition parseCondition(std::wstring_view text);

/// What an element must be; a member that is empty demands nothing.
struct ElementFilter {
    std::wstring layers; ///< Layer names separated by commas: "*" stands for any characters, "?" for one.
    std::wstring blocks; ///< Block names, likewise. The case of ASCII letters does not matter in either.
    std::vector<int> linkKinds; ///< See RootComn_GetBlockRootKind.
    AcDbObjectId group;         ///< A group that lists the element as a member.
    Condition where;
};

/// Returns the elements that fulfil every demand of the filter, in their order. Without any demand these are
/// all of them; otherwise objects that are no entities or cannot be opened are left out.
[[nodiscard]] ZUCOMN_API std::vector<AcDbObjectId> filterElements(std::span<const AcDbObjectId> elements,
                                                                  const ElementFilter& filter);

} // namespace zucomn
