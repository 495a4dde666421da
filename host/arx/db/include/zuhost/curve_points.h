#pragma once

#include <dbcurve.h>
#include <zuhost/platform/export.h>

#include <vector>

namespace zuhost {

/// Returns points on a curve in order, its ends among them: those of straight parts, and of arcs the ends of
/// equal chords, at most `chordsPerTurn` for a whole turn. Empty for a curve without parts and one that is
/// not finite.
[[nodiscard]] ZUHOST_API std::vector<AcGePoint3d> curvePoints(const AcDbCurve& curve, int chordsPerTurn);

} // namespace zuhost
