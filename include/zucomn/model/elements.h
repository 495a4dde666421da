#pragma once

#include "../export.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zucomn {

// Element codes that are no fittings; see ZuComn_GetBlockElementCode.
inline constexpr int kEquipment = 0;
inline constexpr int kNoElement = 100; ///< The block's name has no element prefix.

/// Returns an element code in words: "route line", "tee" ..., "fitting 21" for fittings without a name of
/// their own, "-" for kNoElement.
[[nodiscard]] ZUCOMN_API std::wstring elementKindName(int code);

/// A kind that route groups have.
struct RouteKind {
    int number = 0;           ///< The link kind of the group's elements.
    std::wstring name;        ///< In the user's language.
    std::uint32_t colour = 0; ///< 0xRRGGBB, in which plans show it.
};

/// Returns all route kinds, lowest number first.
[[nodiscard]] ZUCOMN_API std::vector<RouteKind> routeKinds();

/// True when groups of elements with the link kind are routes.
[[nodiscard]] ZUCOMN_API bool isRouteKind(int linkKind);

} // namespace zucomn
