#include "point_cluster.h"

#include <algorithm>
#include <cmath>

namespace zu {

double PointCluster::Box::distanceTo(const AcGePoint3d& point) const {
    return std::hypot(std::max({left - point.x, point.x - right, 0.0}),
                      std::max({bottom - point.y, point.y - top, 0.0}));
}

PointCluster::PointCluster(std::vector<AcGePoint3d> points) : points_(std::move(points)) {
    split(0, points_.size(), true);
    if (points_.empty())
        return;
    box_ = {points_[0].x, points_[0].x, points_[0].y, points_[0].y};
    for (const AcGePoint3d& point : points_)
        box_ = {std::min(box_.left, point.x), std::max(box_.right, point.x), std::min(box_.bottom, point.y),
                std::max(box_.top, point.y)};
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

bool PointCluster::hasWithin(std::size_t first, std::size_t last, bool byColumn, Box box,
                             const AcGePoint3d& centre, double distance) const {
    // Slightly more than the distance, to allow for rounding.
    if (first == last || box.distanceTo(centre) > distance * (1.0 + 1e-9))
        return false;
    const std::size_t middle = first + (last - first) / 2;
    const AcGePoint3d& point = points_[middle];
    if (distance >= point.distanceTo(centre))
        return true;
    Box lower = box;
    Box upper = box;
    (byColumn ? lower.right : lower.top) = byColumn ? point.x : point.y;
    (byColumn ? upper.left : upper.bottom) = byColumn ? point.x : point.y;
    const auto searchLower = [&] { return hasWithin(first, middle, !byColumn, lower, centre, distance); };
    const auto searchUpper = [&] { return hasWithin(middle + 1, last, !byColumn, upper, centre, distance); };
    // The nearer half first.
    const bool isBelow = byColumn ? centre.x < point.x : centre.y < point.y;
    return isBelow ? searchLower() || searchUpper() : searchUpper() || searchLower();
}

} // namespace zu
