#pragma once

#include "element_state.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace zu {

/// For each element of the second drawing the place of the same element in the first; nullopt for new ones.
[[nodiscard]] std::vector<std::optional<std::size_t>> matchElements(const std::vector<ElementState>& before,
                                                                    const std::vector<ElementState>& after);

} // namespace zu
