#include "plane_change.h"

#include <cmath>

std::optional<zuhost::PlaneChange> zuhost::planeChange(const AcGeMatrix3d& transform,
                                                       const AcGeVector3d& normal) {
    const AcGeMatrix3d before = AcGeMatrix3d::planeToWorld(normal);
    const AcGeVector3d x = transform * (before * AcGeVector3d::kXAxis);
    const AcGeVector3d y = transform * (before * AcGeVector3d::kYAxis);
    const double scale = x.length();
    const AcGeTol tolerance = AcGeTol().setEqualVector(1e-9);
    if (!(scale > 0.0) || !std::isfinite(scale) || std::abs(y.length() - scale) > 1e-9 * scale ||
        std::abs(x.dotProduct(y)) > 1e-9 * scale * scale)
        return std::nullopt;
    PlaneChange change;
    const AcGeVector3d across = (x / scale).crossProduct(y / scale).normal(tolerance);
    change.isMirrored = across.dotProduct(transform * normal) < 0.0;
    change.normal = change.isMirrored ? -across : across;
    // Rounding must not tilt a plane that stays upright.
    if (change.normal.isEqualTo(AcGeVector3d::kZAxis, tolerance))
        change.normal = AcGeVector3d::kZAxis;
    change.turn = change.normal.perpVector().angleTo(x, change.normal);
    change.scale = scale;
    return change;
}
