#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

namespace zu {

/// A kind that route groups have.
struct RouteKindRow {
    int number;           ///< The link kind of the group's elements.
    unsigned name;        ///< Id of its name among the library's texts.
    std::uint32_t colour; ///< 0xRRGGBB.
};

/// One row per route kind. A new kind is a row here and its name in every language file.
inline constexpr std::array kRouteKinds{
    RouteKindRow{1, 211, 0x1565c0},
    RouteKindRow{2, 212, 0xc62828},
    RouteKindRow{3, 213, 0x2e7d32},
    RouteKindRow{4, 214, 0xef6c00},
};

/// Link records store kinds 0 to this.
inline constexpr int kLastLinkKind = 6;

[[nodiscard]] constexpr bool isRouteKind(int linkKind) {
    return std::any_of(kRouteKinds.begin(), kRouteKinds.end(),
                       [linkKind](const RouteKindRow& row) { return row.number == linkKind; });
}

static_assert(!isRouteKind(0), "0 stands for an unknown route kind");
static_assert(std::all_of(kRouteKinds.begin(), kRouteKinds.end(),
                          [](const RouteKindRow& row) { return row.number <= kLastLinkKind; }),
              "link records hold one digit");

} // namespace zu
