#pragma once

#include "gepnt3d.h"

#include <optional>
#include <string_view>

namespace zuhost {

/// Parses a point: "x,y", "x,y,z", "distance<angle", each with "@" relative to `origin`, and "@" alone. A
/// leading "*", for the world's coordinates, is ignored. Without z it is 0, or that of the origin. nullopt
/// for other texts.
[[nodiscard]] std::optional<AcGePoint3d> parsePoint(std::wstring_view text, const AcGePoint3d& origin);

/// Writes a point so that parsePoint returns the same.
[[nodiscard]] std::wstring pointText(const AcGePoint3d& point);
/// Writes the shortest text that reads back as the same number.
[[nodiscard]] std::wstring realText(double value);

} // namespace zuhost
