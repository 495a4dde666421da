#include "element_place.h"

#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <numbers>

namespace zu {

namespace {

constexpr double kSteps = 1e6;
constexpr double kFullTurn = 360.0;

/// Adding 0.0 turns a negative zero into a positive one. Damaged drawings have values that are not a number;
/// these have to be equal, too.
double rounded(double value) {
    if (std::isnan(value))
        return std::numeric_limits<double>::max();
    return std::round(value * kSteps) / kSteps + 0.0;
}

double degrees(double radians) {
    const double angle = std::fmod(rounded(radians * 180.0 / std::numbers::pi), kFullTurn);
    return rounded(angle < 0.0 ? angle + kFullTurn : angle);
}

std::size_t mixed(std::size_t hash, double value) {
    const std::uint64_t next = (hash ^ std::hash<double>()(value)) * 0x9E3779B97F4A7C15ULL;
    return static_cast<std::size_t>(next ^ (next >> 29U));
}

} // namespace

ElementPlace elementPlace(const ReferenceFacts& facts) {
    const auto& [x, y, z] = facts.position;
    const AcGeScale3d& scale = facts.scale;
    const AcGeVector3d& normal = facts.normal;
    return {{rounded(x), rounded(y), rounded(z)},
            {rounded(scale.sx), rounded(scale.sy), rounded(scale.sz)},
            degrees(facts.rotation),
            {rounded(normal.x), rounded(normal.y), rounded(normal.z)}};
}

std::size_t hashOf(const ElementPlace& place, std::size_t blockHash) {
    std::size_t hash = mixed(blockHash, place.rotation);
    for (const auto& values : {place.position, place.scale, place.normal})
        for (const double value : values)
            hash = mixed(hash, value);
    return hash;
}

} // namespace zu
