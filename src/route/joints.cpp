#include <zucomn/model/joints.h>

#include "element_blocks.h"
#include "id_map.h"
#include "point_grid.h"
#include "reference_facts.h"

#include <dbents.h>
#include <dbobjptr.h>

#include <algorithm>
#include <cmath>
#include <future>
#include <limits>
#include <numeric>

namespace zucomn {

namespace {

/// The points grouped by element; elements are numbered in the order of the points.
class PointsOfElements {
public:
    explicit PointsOfElements(std::span<const ConnectionPoint> points) {
        for (const ConnectionPoint& point : points)
            owners_.push_back(numberOf(point.element));
        std::vector<std::size_t> ends(elements_.size() + 1);
        for (const int owner : owners_)
            ++ends[static_cast<std::size_t>(owner) + 1];
        std::partial_sum(ends.begin(), ends.end(), ends.begin());
        firsts_ = ends;
        places_.resize(points.size());
        for (std::size_t i = 0; i < points.size(); ++i)
            places_[ends[static_cast<std::size_t>(owners_[i])]++] = placeOf(points[i]);
    }

    static AcGePoint3d placeOf(const ConnectionPoint& point) {
        return {point.position.x, point.position.y, 0.0};
    }

    void addTo(zu::PointGrid& grid) const {
        grid.reserve(places_.size());
        for (std::size_t i = 0; i < elements_.size(); ++i)
            grid.add(std::span(places_).subspan(firsts_[i], firsts_[i + 1] - firsts_[i]),
                     static_cast<int>(i));
    }
    /// The number of the element of a point.
    [[nodiscard]] int ownerOf(std::size_t point) const { return owners_[point]; }
    [[nodiscard]] AcDbObjectId element(int number) const {
        return elements_[static_cast<std::size_t>(number)];
    }

private:
    /// Points of one element usually follow each other.
    int numberOf(AcDbObjectId element) {
        if (!elements_.empty() && elements_.back() == element)
            return static_cast<int>(elements_.size()) - 1;
        const auto [number, isNew] = numbers_.tryEmplace(element);
        if (isNew) {
            number = static_cast<int>(elements_.size());
            elements_.push_back(element);
        }
        return number;
    }

    zu::IdMap<int> numbers_;
    std::vector<AcDbObjectId> elements_;
    std::vector<int> owners_;         ///< Of each point.
    std::vector<AcGePoint3d> places_; ///< Those of the first element, then those of the next one ...
    std::vector<std::size_t> firsts_; ///< Where each element's places begin; then their number.
};

/// Calls `take` with each point that joins up to `most` other elements, and their numbers.
template <typename Take>
void search(std::span<const ConnectionPoint> points, double tolerance, std::size_t most, Take take) {
    const PointsOfElements elements(points);
    zu::PointGrid grid(tolerance);
    elements.addTo(grid);
    std::vector<int> found;
    for (std::size_t i = 0; i < points.size(); ++i) {
        found.clear();
        const int own = elements.ownerOf(i);
        const auto isKnown = [&](int other) {
            return other == own || std::find(found.begin(), found.end(), other) != found.end();
        };
        grid.visit(PointsOfElements::placeOf(points[i]), tolerance, isKnown, [&](int other) {
            found.push_back(other);
            return found.size() < most;
        });
        if (!found.empty())
            take(i, elements, found);
    }
}

/// Which of the points from `low` to `high` on the x axis join another element: sets their places in
/// `joined`.
void findJoined(std::span<const ConnectionPoint> points, double tolerance, double low, double high,
                std::vector<char>& joined) {
    std::vector<ConnectionPoint> nearby;
    std::vector<std::size_t> places;
    nearby.reserve(points.size());
    places.reserve(points.size());
    for (std::size_t i = 0; i < points.size(); ++i)
        if (const double x = points[i].position.x; x >= low - tolerance && x <= high + tolerance) {
            nearby.push_back(points[i]);
            places.push_back(i);
        }
    search(nearby, tolerance, 1, [&](std::size_t point, const PointsOfElements&, const std::vector<int>&) {
        if (const double x = nearby[point].position.x; x >= low && x <= high)
            joined[places[point]] = 1;
    });
}

/// Returns a place on the x axis with about as many points on either side.
double middleColumn(std::span<const ConnectionPoint> points) {
    constexpr std::size_t kSamples = 1000;
    std::vector<double> across;
    for (std::size_t i = 0; i < points.size(); i += points.size() / kSamples + 1)
        if (std::isfinite(points[i].position.x))
            across.push_back(points[i].position.x);
    if (across.empty())
        return 0.0;
    const auto middle = across.begin() + static_cast<std::ptrdiff_t>(across.size() / 2);
    std::nth_element(across.begin(), middle, across.end());
    return *middle;
}

} // namespace

std::vector<ConnectionPoint> connectionPoints(std::span<const AcDbObjectId> elements) {
    zu::ElementBlocks blocks;
    std::vector<ConnectionPoint> points;
    zu::ReferenceFacts facts;
    zu::Points own;
    for (const AcDbObjectId element : elements) {
        const AcDbObjectPointer<AcDbBlockReference> reference(element);
        if (reference.openStatus() != Acad::eOk)
            continue;
        zu::readFacts(*reference.object(), facts);
        (void)zu::placePoints(blocks.of(*reference.object(), facts.block), facts.transform, own);
        int number = 0;
        for (const AcGePoint3d& point : own)
            points.push_back({element, number++, {point.x, point.y}});
    }
    return points;
}

std::vector<std::vector<AcDbObjectId>> joinedElements(std::span<const ConnectionPoint> points,
                                                      std::size_t most) {
    std::vector<std::vector<AcDbObjectId>> joined(points.size());
    search(points, zu::connectionTolerance(), most,
           [&](std::size_t point, const PointsOfElements& elements, std::vector<int>& found) {
               std::sort(found.begin(), found.end());
               joined[point].reserve(found.size());
               for (const int other : found)
                   joined[point].push_back(elements.element(other));
           });
    return joined;
}

std::vector<bool> joinedPoints(std::span<const ConnectionPoint> points) {
    constexpr double kFarthest = std::numeric_limits<double>::infinity();
    constexpr std::size_t kWorthAThread = 10'000;
    const double tolerance = zu::connectionTolerance();
    std::vector<char> joined(points.size());
    if (points.size() < kWorthAThread) {
        findJoined(points, tolerance, -kFarthest, kFarthest, joined);
    } else {
        const double middle = middleColumn(points);
        std::future<void> left =
            std::async([&] { findJoined(points, tolerance, -kFarthest, middle, joined); });
        findJoined(points, tolerance, std::nextafter(middle, kFarthest), kFarthest, joined);
        left.get();
    }
    return {joined.begin(), joined.end()};
}

} // namespace zucomn
