#pragma once

#include "dbid.h"
#include "gepnt2d.h"

#include <vector>

class AcDbEntity;

namespace zuhost {

/// A polygonal line, or a single point.
using Path = std::vector<AcGePoint2d>;

/// Returns what an entity draws, seen from above: curves as chords, texts as their approximate frames, block
/// references with their content. Empty for entities that draw nothing.
[[nodiscard]] std::vector<Path> outline(const AcDbEntity& entity);

/// Returns whether every point of the paths is in the closed polygon and none of their lines leaves it; false
/// without paths.
[[nodiscard]] bool isWithin(const std::vector<Path>& paths, const Path& polygon);
/// Returns whether any point of the paths is in the closed polygon or any of their lines crosses it.
[[nodiscard]] bool isWithinOrCrosses(const std::vector<Path>& paths, const Path& polygon);
/// Returns whether any of the paths crosses the line, or touches it.
[[nodiscard]] bool crosses(const std::vector<Path>& paths, const Path& line);

/// Returns the distance of the point from the nearest path.
[[nodiscard]] double distanceTo(const std::vector<Path>& paths, const AcGePoint2d& point);

} // namespace zuhost
