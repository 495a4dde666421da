#include "point_cluster.h"

#include <algorithm>
#include <cmath>

namespace zu {

PointCluster::PointCluster(std::vector<AcGePoint3d> points) : points_(std::move(points)) {
    split(0, points_.size(), true);
}

void PointCluster::split(std::size_t first, std::size_t last, bool byColumn) {
    if (last - first < 2)
        return;
    const std::size_t middle = first + (last - first) / 2;
    const auto at = [this](std::size_t i) { return points_.begin() + static_cast<std::ptrdiff_t>(i); };
    std::nth_element(at(first), at(middle), at(last), [byColumn](const AcGePoint3d& a, const AcGePoint3d& b) {
        return byColumn ? a.x < b.x : a.y < b.y;
    });
    split(first, middle, !byColumn);
    split(middle + 1, last, !byColumn);
}

bool PointCluster::hasWithin(std::size_t first, std::size_t last, bool byColumn, const AcGePoint3d& centre,
                             double distance) const {
    if (first == last)
        return false;
    const std::size_t middle = first + (last - first) / 2;
    const AcGePoint3d& point = points_[middle];
    if (distance >= point.distanceTo(centre))
        return true;
    const double offset = byColumn ? centre.x - point.x : centre.y - point.y;
    // The nearer half first. A little more than the distance, for the rounding of measured distances.
    const bool isBelow = offset < 0.0;
    const auto searchHalf = [&](bool lower) {
        return lower ? hasWithin(first, middle, !byColumn, centre, distance)
                     : hasWithin(middle + 1, last, !byColumn, centre, distance);
    };
    if (searchHalf(isBelow))
        return true;
    return std::abs(offset) <= distance * (1.0 + 1e-9) && searchHalf(!isBelow);
}

} // namespace zu
