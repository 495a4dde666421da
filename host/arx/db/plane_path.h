#pragma once

#include "adesk.h"
#include "gepnt2d.h"

#include <vector>

namespace zuhost {

/// A vertex of a polyline in its plane, with the segment from it to the next one.
struct PlaneVertex {
    AcGePoint2d point;
    double bulge = 0.0;
    double startWidth = 0.0;
    double endWidth = 0.0;
};

/// The vertices of a polyline in its plane.
struct PlanePath {
    std::vector<PlaneVertex> vertices;
    bool isClosed = false;

    [[nodiscard]] PlanePath reversed() const;
    /// Returns the open path from one parameter to a larger one: indices of vertices, with fractions between.
    [[nodiscard]] PlanePath part(double from, double to) const;
    /// Sets `result` to the path parallel to this one, to the right for a distance above 0.
    /// eDegenerateGeometry for a path without segments; eNotImplementedYet where segments would be lost,
    /// where arcs do not meet their neighbours in a tangent, and where the result would cross itself.
    Acad::ErrorStatus parallel(double distance, PlanePath& result) const;
};

} // namespace zuhost
