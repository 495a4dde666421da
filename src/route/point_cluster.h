#pragma once

#include <gepnt3d.h>

#include <vector>

namespace zu {

/// Points that lie close together, as a balanced tree: whether one is within a distance is found without
/// looking at each.
class PointCluster {
public:
    PointCluster() = default;
    explicit PointCluster(std::vector<AcGePoint3d> points);

    [[nodiscard]] bool hasWithin(const AcGePoint3d& centre, double distance) const {
        return hasWithin(0, points_.size(), true, centre, distance);
    }

private:
    void split(std::size_t first, std::size_t last, bool byColumn);
    [[nodiscard]] bool hasWithin(std::size_t first, std::size_t last, bool byColumn,
                                 const AcGePoint3d& centre, double distance) const;

    /// The middle of a range separates smaller coordinates from greater ones, x and y in turn.
    std::vector<AcGePoint3d> points_;
};

} // namespace zu
