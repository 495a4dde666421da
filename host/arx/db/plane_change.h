#pragma once

#include "gemat3d.h"

#include <optional>

namespace zuhost {

/// What a transformation does to entities in a plane, whose records hold coordinates and angles of the plane.
struct PlaneChange {
    AcGeVector3d normal; ///< The transformed normal, which keeps its side.
    double turn = 0.0;   ///< By which angles grow, from the x axis of the old plane to that of the new.
    double scale = 1.0;
    bool isMirrored = false; ///< Counter-clockwise becomes clockwise.

    [[nodiscard]] double angle(double before) const { return isMirrored ? turn - before : turn + before; }
    /// Maps the coordinates of the old plane to those of the new.
    [[nodiscard]] AcGeMatrix3d coordinates(const AcGeMatrix3d& transform,
                                           const AcGeVector3d& oldNormal) const {
        return AcGeMatrix3d::worldToPlane(normal) * transform * AcGeMatrix3d::planeToWorld(oldNormal);
    }
};

/// Returns nullopt when the directions of the plane are scaled unequally: circles would become ellipses.
std::optional<PlaneChange> planeChange(const AcGeMatrix3d& transform, const AcGeVector3d& normal);

} // namespace zuhost
