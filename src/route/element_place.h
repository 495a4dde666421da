#pragma once

#include "reference_facts.h"

#include <array>

namespace zu {

/// Where a reference puts its block: position, scale, rotation in degrees and normal, in steps of 0.000001,
/// so that equal places have equal values.
struct ElementPlace {
    std::array<double, 3> position{};
    std::array<double, 3> scale{};
    double rotation = 0.0;
    std::array<double, 3> normal{};

    bool operator==(const ElementPlace&) const = default;
};

[[nodiscard]] ElementPlace elementPlace(const ReferenceFacts& facts);

/// Returns a hash of the place, to be used with that of the block.
[[nodiscard]] std::size_t hashOf(const ElementPlace& place, std::size_t blockHash);

} // namespace zu
