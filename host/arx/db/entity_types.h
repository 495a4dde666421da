#pragma once

#include <array>
#include <string_view>

namespace zuhost {

/// The classes of a type of entities, for lists without their markers.
struct EntityType {
    std::string_view name;
    std::string_view marker;
    std::string_view secondMarker;  ///< Empty without a second class.
    std::array<int, 8> secondCodes; ///< The second class's codes; 0 fills the rest.
    std::array<int, 4> required;    ///< Codes that a list must have, -1 fills the rest.
};

/// Returns null for a type whose classes are not known.
[[nodiscard]] const EntityType* entityType(std::string_view name);

/// Returns whether all entities have the code, in the section of their common class.
[[nodiscard]] bool isCommonCode(int code);
[[nodiscard]] bool isOfSecondClass(const EntityType& type, int code);

} // namespace zuhost
