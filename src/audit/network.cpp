#include "network.h"

#include "route/connection_points.h"
#include "route/point_grid.h"

#include <algorithm>

namespace zu {

namespace {

/// More elements around one point, and more points of one element, are damage; the others are not searched
/// for gaps.
constexpr std::size_t kMostSearched = 64;

} // namespace

Network::Network(std::vector<CountedElement> elements) : elements_(std::move(elements)) {
    addPoints();
    const double tolerance = connectionTolerance();
    const double reach = zucomn::kGapReach * tolerance;
    PointGrid grid(reach);
    grid.reserve(points_.size());
    for (std::size_t i = 0; i < elements_.size(); ++i)
        grid.add(elements_[i].points, static_cast<int>(i));
    findJoined(grid, tolerance);
    findGaps(grid, reach);
}

std::vector<AcDbObjectId> Network::joinedTo(const NetworkPoint& point) const {
    std::vector<AcDbObjectId> ids;
    for (const std::size_t other : point.others())
        ids.push_back(elements_[other].id);
    return ids;
}

void Network::addPoints() {
    std::size_t count = 0;
    for (const CountedElement& element : elements_)
        count += element.points.size();
    points_.reserve(count);
    firstPoints_.reserve(elements_.size() + 1);
    for (std::size_t i = 0; i < elements_.size(); ++i) {
        firstPoints_.push_back(points_.size());
        for (std::size_t number = 0; number < elements_[i].points.size(); ++number) {
            NetworkPoint& point = points_.emplace_back();
            point.element = static_cast<std::uint32_t>(i);
            point.number = static_cast<std::uint32_t>(number);
        }
    }
    firstPoints_.push_back(points_.size());
}

void Network::findJoined(const PointGrid& grid, double tolerance) {
    for (NetworkPoint& point : points_) {
        const auto isKnown = [&](int other) {
            const auto known = point.others();
            const auto element = static_cast<std::uint32_t>(other);
            return element == point.element || std::find(known.begin(), known.end(), element) != known.end();
        };
        grid.visit(positionOf(point), tolerance, isKnown, [&](int other) {
            point.joined[point.joinedCount++] = static_cast<std::uint32_t>(other);
            return point.joinedCount < point.joined.size();
        });
        std::sort(point.joined.begin(),
                  point.joined.begin() + static_cast<std::ptrdiff_t>(point.joinedCount));
    }
}

void Network::findGaps(const PointGrid& grid, double reach) {
    for (NetworkPoint& point : points_) {
        if (point.joinedCount > 0)
            continue;
        std::size_t searched = 0;
        const auto isOwn = [&](int other) { return static_cast<std::uint32_t>(other) == point.element; };
        grid.visit(positionOf(point), reach, isOwn, [&](int other) {
            const auto found = nearest(point, static_cast<std::size_t>(other));
            if (found && (!point.gap || found->distance < point.gap->distance))
                point.gap = found;
            return ++searched < kMostSearched;
        });
    }
}

std::optional<NearPoint> Network::nearest(const NetworkPoint& point, std::size_t element) const {
    std::optional<NearPoint> found;
    const std::size_t last = std::min(firstPoints_[element + 1], firstPoints_[element] + kMostSearched);
    for (std::size_t i = firstPoints_[element]; i < last; ++i) {
        const double distance = positionOf(points_[i]).distanceTo(positionOf(point));
        if (!found || distance < found->distance)
            found = {i, distance};
    }
    return found;
}

} // namespace zu
