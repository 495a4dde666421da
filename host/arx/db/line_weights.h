#pragma once

#include "acdb.h"

#include <algorithm>
#include <array>

namespace zuhost {

/// The first version of drawings that hold line weights, and whether layers are plotted.
inline constexpr int kLineWeightVersion = 1015;

/// Returns whether it is one of the declared weights or of their codes.
constexpr bool isLineWeight(AcDb::LineWeight weight) {
    constexpr std::array kWeights{0,  5,  9,  13,  15,  18,  20,  25,  30,  35,  40, 50, 53, 60,
                                  70, 80, 90, 100, 106, 120, 140, 158, 200, 211, -1, -2, -3};
    return std::find(kWeights.begin(), kWeights.end(), weight) != kWeights.end();
}

} // namespace zuhost
