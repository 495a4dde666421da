#include "network.h"

#include "frame/text_view.h"
#include "route/connection_points.h"
#include "route/point_grid.h"

#include <afxstr.h>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace zu {

namespace {

constexpr double kSteps = 1000.0; ///< In one drawing unit.
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
    for (std::size_t i = 0; i < elements_.size(); ++i) {
        firstPoints_.push_back(points_.size());
        int number = 0;
        for (const AcGePoint3d& position : elements_[i].points) {
            NetworkPoint& point = points_.emplace_back();
            point.element = i;
            point.number = number++;
            point.position = position;
        }
    }
    firstPoints_.push_back(points_.size());
}

void Network::findJoined(const PointGrid& grid, double tolerance) {
    for (NetworkPoint& point : points_) {
        const auto isKnown = [&](int other) {
            const auto known = point.others();
            return static_cast<std::size_t>(other) == point.element ||
                   std::find(known.begin(), known.end(), static_cast<std::size_t>(other)) != known.end();
        };
        grid.visit(point.position, tolerance, isKnown, [&](int other) {
            point.joined[point.joinedCount++] = static_cast<std::size_t>(other);
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
        const auto isOwn = [&](int other) { return static_cast<std::size_t>(other) == point.element; };
        grid.visit(point.position, reach, isOwn, [&](int other) {
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
        const double distance = points_[i].position.distanceTo(point.position);
        if (!found || distance < found->distance)
            found = {i, distance};
    }
    return found;
}

std::wstring handleText(AcDbObjectId id) {
    ACHAR buffer[17];
    id.handle().getIntoAsciiBuffer(buffer);
    return buffer;
}

std::wstring numberText(double value) {
    constexpr double kLargestPlain = 1e12; // Smaller ones have at most 15 digits.
    // Adding 0.0 turns a negative zero, which would be written "-0", into a positive one.
    const double rounded = std::round(value * kSteps) / kSteps + 0.0;
    if (std::abs(rounded) < kLargestPlain) {
        std::array<char, 32> digits{};
        const auto end =
            std::to_chars(digits.data(), digits.data() + digits.size(), rounded, std::chars_format::fixed)
                .ptr;
        return {digits.data(), end};
    }
    CString text;
    text.Format(L"%.15g", rounded);
    return std::wstring(zu::view(text));
}

std::wstring placeText(const AcGePoint3d& point) {
    return numberText(point.x) + L", " + numberText(point.y);
}

} // namespace zu
