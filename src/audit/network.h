#pragma once

#include "findings.h"

#include <gepnt3d.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zu {

class PointGrid;

/// A point beyond the connection tolerance.
struct NearPoint {
    std::size_t point = 0; ///< Its place among the points.
    double distance = 0.0;
};

/// A connection point and what it meets. Elements are named by their places in the network.
struct NetworkPoint {
    std::uint32_t element = 0;
    std::uint32_t number = 0;              ///< Number among the points of the element, from 0.
    std::array<std::uint32_t, 2> joined{}; ///< Of more than two elements any two, in order.
    std::uint32_t joinedCount = 0;
    /// For a point that joins nothing the nearest point of another element within kGapReach.
    std::optional<NearPoint> gap;

    [[nodiscard]] std::span<const std::uint32_t> others() const {
        return std::span(joined).first(joinedCount);
    }
};

/// The connection points of elements, in their order. The time is proportional to the number of points,
/// however close together they lie.
class Network {
public:
    explicit Network(std::vector<CountedElement> elements);

    [[nodiscard]] const std::vector<CountedElement>& elements() const { return elements_; }
    [[nodiscard]] const std::vector<NetworkPoint>& points() const { return points_; }
    [[nodiscard]] AcDbObjectId elementOf(const NetworkPoint& point) const {
        return elements_[point.element].id;
    }
    [[nodiscard]] const AcGePoint3d& positionOf(const NetworkPoint& point) const {
        return elements_[point.element].points[point.number];
    }
    [[nodiscard]] std::vector<AcDbObjectId> joinedTo(const NetworkPoint& point) const;

private:
    void addPoints();
    void findJoined(const PointGrid& grid, double tolerance);
    void findGaps(const PointGrid& grid, double reach);
    [[nodiscard]] std::optional<NearPoint> nearest(const NetworkPoint& point, std::size_t element) const;

    std::vector<CountedElement> elements_;
    std::vector<NetworkPoint> points_;
    std::vector<std::size_t> firstPoints_; ///< Of each element, then the number of points.
};

// The parts of the audit of design.

/// Elements with a prefix that stand exactly where another of their block stands. Removes them.
void auditDuplicates(std::vector<CountedElement>& elements, RouteAudit& audit);
/// Connection points that join nothing, or more than one element.
void auditConnectionPoints(const Network& network, RouteAudit& audit);
/// Joined elements whose kinds, sizes or heights differ.
void auditJoints(const Network& network, RouteAudit& audit);
/// Route groups that fall into parts.
void auditReach(const std::vector<zucomn::Group>& groups, const Network& network, RouteAudit& audit);

} // namespace zu
