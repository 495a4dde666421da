#pragma once

#include <gepnt3d.h>

#include <vector>

namespace zu {

/// Points that lie close together, as a balanced tree: finds whether one is within a distance without
/// visiting each.
class PointCluster {
public:
    PointCluster() = default;
    explicit PointCluster(std::vector<AcGePoint3d> points);

    [[nodiscard]] bool hasWithin(const AcGePoint3d& centre, double distance) const {
        return hasWithin(0, points_.size(), true, box_, centre, distance);
    }

private:
    struct Box {
        double left = 0.0;
        double right = 0.0;
        double bottom = 0.0;
        double top = 0.0;

        [[nodiscard]] double distanceTo(const AcGePoint3d& point) const;
    };

    void split(std::size_t first, std::size_t last, bool byColumn);
    [[nodiscard]] bool hasWithin(std::size_t first, std::size_t last, bool byColumn, Box box,
                                 const AcGePoint3d& centre, double distance) const;

    /// The middle of a range separates smaller coordinates from greater ones, x and y in turn.
    std::vector<AcGePoint3d> points_;
    Box box_;
};

} // namespace zu
