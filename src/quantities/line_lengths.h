#pragma once

#include "counted_element.h"

#include <span>
#include <vector>

namespace zu {

struct LineLength {
    double inPlan = 0.0;
    double sloping = 0.0; ///< As in plan where a height is missing.
};

/// Returns the length of each element: nullopt for those that are no route lines, or have not exactly two
/// connection points at a finite distance. The elements must be all that can join one of them.
[[nodiscard]] std::vector<std::optional<LineLength>> lineLengths(std::span<const CountedElement> elements);

} // namespace zu
