#pragma once

#include "dbextents.h"
#include "gearc3d.h"
#include "gelnsg3d.h"

#include <memory>
#include <optional>
#include <vector>

namespace zuhost {

/// A straight segment or an arc of a circle or ellipse, with the curve's parameters at its ends.
struct CurvePiece {
    /// A segment: from `centre` to `centre + across`. An arc: `centre + along cos(t) + across sin(t)`, with t
    /// from `start` to `end`.
    bool isArc = false;
    AcGePoint3d centre;
    AcGeVector3d along;
    AcGeVector3d across;
    double start = 0.0;
    double end = 1.0;
    double firstParam = 0.0;
    double lastParam = 1.0;

    static CurvePiece segment(const AcGePoint3d& from, const AcGePoint3d& to, double firstParam,
                              double lastParam);
    static CurvePiece arc(const AcGePoint3d& centre, const AcGeVector3d& along, const AcGeVector3d& across,
                          double start, double end, double firstParam, double lastParam);
    /// The arc of a polyline with this bulge; a segment for bulge 0 and equal points.
    static CurvePiece bulged(const AcGePoint3d& from, const AcGePoint3d& to, const AcGeVector3d& normal,
                             double bulge, double firstParam);

    [[nodiscard]] AcGePoint3d at(double t) const;
    [[nodiscard]] AcGeVector3d derivative(double t) const;
    [[nodiscard]] AcGePoint3d first() const { return at(start); }
    [[nodiscard]] AcGePoint3d last() const { return at(end); }
    [[nodiscard]] bool isCircular() const;
    /// Returns the length from the start to `t`.
    [[nodiscard]] double lengthTo(double t) const;
    [[nodiscard]] double length() const { return lengthTo(end); }
    [[nodiscard]] double atLength(double length) const;
    /// Returns the t of the closest point; of the endless line or the whole ellipse with `extended`.
    [[nodiscard]] double closest(const AcGePoint3d& point, bool extended = false) const;
    /// Returns the area between the piece and the lines to the origin, as a vector.
    [[nodiscard]] AcGeVector3d areaAbout(const AcGePoint3d& origin) const;

    [[nodiscard]] double toParam(double t) const;
    [[nodiscard]] double fromParam(double param) const;

    [[nodiscard]] CurvePiece transformed(const AcGeMatrix3d& matrix) const;
    void addTo(AcDbExtents& extents) const;
    /// Returns the piece as a geometric object, whole with `extended`; null for an ellipse.
    [[nodiscard]] std::unique_ptr<AcGeCurve3d> geometry(bool extended = false) const;
};

using CurvePieces = std::vector<CurvePiece>;

/// Appends the points in which two curves meet, in the order of the first. Extending makes segments endless
/// and arcs whole. False, with no points, when an ellipse is among the pieces.
bool intersect(const CurvePieces& a, bool extendsA, const CurvePieces& b, bool extendsB,
               std::vector<AcGePoint3d>& points);

} // namespace zuhost
