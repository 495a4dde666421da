#include <zucomn/model/joints.h>

#include "connection_points.h"
#include "point_grid.h"

#include <algorithm>
#include <unordered_map>

namespace zucomn {

namespace {

/// The points grouped by element; elements are numbered in the order of the points.
class PointsOfElements {
public:
    explicit PointsOfElements(std::span<const ConnectionPoint> points) {
        for (const ConnectionPoint& point : points) {
            const auto [number, isNew] =
                numbers_.try_emplace(point.element, static_cast<int>(numbers_.size()));
            if (isNew) {
                elements_.push_back(point.element);
                points_.emplace_back();
            }
            points_[static_cast<std::size_t>(number->second)].emplace_back(point.position.x, point.position.y,
                                                                           0.0);
        }
    }

    void addTo(zu::PointGrid& grid) const {
        for (std::size_t i = 0; i < points_.size(); ++i)
            grid.add(points_[i], static_cast<int>(i));
    }
    [[nodiscard]] int numberOf(AcDbObjectId element) const { return numbers_.at(element); }
    [[nodiscard]] AcDbObjectId element(int number) const {
        return elements_[static_cast<std::size_t>(number)];
    }

private:
    std::unordered_map<AcDbObjectId, int> numbers_;
    std::vector<AcDbObjectId> elements_;
    std::vector<zu::Points> points_;
};

} // namespace

std::vector<ConnectionPoint> connectionPoints(std::span<const AcDbObjectId> elements) {
    const std::wstring layer = zu::connectionLayer();
    std::vector<ConnectionPoint> points;
    for (const AcDbObjectId element : elements) {
        int number = 0;
        for (const AcGePoint3d& point : zu::connectionPoints(element, layer).value)
            points.push_back({element, number++, {point.x, point.y}});
    }
    return points;
}

std::vector<std::vector<AcDbObjectId>> joinedElements(std::span<const ConnectionPoint> points,
                                                      std::size_t most) {
    const double tolerance = zu::connectionTolerance();
    const PointsOfElements elements(points);
    zu::PointGrid grid(tolerance);
    elements.addTo(grid);
    std::vector<std::vector<AcDbObjectId>> joined(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        std::vector<int> found;
        const int own = elements.numberOf(points[i].element);
        const auto isKnown = [&](int other) {
            return other == own || std::find(found.begin(), found.end(), other) != found.end();
        };
        const AcGePoint3d place(points[i].position.x, points[i].position.y, 0.0);
        grid.visit(place, tolerance, isKnown, [&](int other) {
            found.push_back(other);
            return found.size() < most;
        });
        std::sort(found.begin(), found.end());
        for (const int other : found)
            joined[i].push_back(elements.element(other));
    }
    return joined;
}

} // namespace zucomn
