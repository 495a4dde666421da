#pragma once

#include "adesk.h"
#include "gemat3d.h"

#include <algorithm>

/// An upright box around points.
class AcDbExtents {
public:
    /// Holds no points: the minimum is above the maximum.
    constexpr AcDbExtents() = default;
    AcDbExtents(const AcGePoint3d& min, const AcGePoint3d& max) { set(min, max); }

    [[nodiscard]] AcGePoint3d minPoint() const { return min_; }
    [[nodiscard]] AcGePoint3d maxPoint() const { return max_; }
    /// eInvalidInput, with the box unchanged, when the minimum is above the maximum.
    Acad::ErrorStatus set(const AcGePoint3d& min, const AcGePoint3d& max) {
        if (min.x > max.x || min.y > max.y || min.z > max.z)
            return Acad::eInvalidInput;
        min_ = min;
        max_ = max;
        return Acad::eOk;
    }
    void addPoint(const AcGePoint3d& point) {
        min_.set(std::min(min_.x, point.x), std::min(min_.y, point.y), std::min(min_.z, point.z));
        max_.set(std::max(max_.x, point.x), std::max(max_.y, point.y), std::max(max_.z, point.z));
    }
    void addExt(const AcDbExtents& other) {
        if (other.min_.x > other.max_.x)
            return;
        addPoint(other.min_);
        addPoint(other.max_);
    }
    void expandBy(const AcGeVector3d& by) {
        const AcDbExtents before = *this;
        addPoint(before.min_ + by);
        addPoint(before.max_ + by);
    }
    /// Replaces the box by the one around its transformed corners.
    void transformBy(const AcGeMatrix3d& matrix) {
        const AcDbExtents before = *this;
        *this = AcDbExtents();
        if (before.min_.x > before.max_.x)
            return;
        for (int corner = 0; corner < 8; ++corner)
            addPoint(matrix * AcGePoint3d((corner & 1) != 0 ? before.max_.x : before.min_.x,
                                          (corner & 2) != 0 ? before.max_.y : before.min_.y,
                                          (corner & 4) != 0 ? before.max_.z : before.min_.z));
    }

private:
    AcGePoint3d min_{1e20, 1e20, 1e20};
    AcGePoint3d max_{-1e20, -1e20, -1e20};
};
