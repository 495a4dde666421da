#include "line_lengths.h"

#include "route/point_grid.h"

#include <algorithm>
#include <cmath>

namespace zu {

namespace {

/// The connection points of all elements.
class Joints {
public:
    explicit Joints(std::span<const CountedElement> elements)
        : elements_(elements), tolerance_(connectionTolerance()), grid_(tolerance_) {
        std::size_t points = 0;
        for (const CountedElement& element : elements)
            points += element.points.size();
        grid_.reserve(points);
        for (std::size_t i = 0; i < elements.size(); ++i)
            grid_.add(elements[i].points, static_cast<int>(i));
    }

    /// Returns the fitting that alone joins an element at one of its points; null without one.
    [[nodiscard]] const CountedElement* fittingAt(const AcGePoint3d& point, std::size_t element) const {
        constexpr int kNone = -1;
        const int own = static_cast<int>(element);
        int joined = kNone;
        bool isAlone = true;
        grid_.visit(
            point, tolerance_, [&](int other) { return other == own || other == joined; },
            [&](int other) {
                isAlone = joined == kNone;
                joined = other;
                return isAlone;
            });
        if (joined == kNone || !isAlone)
            return nullptr;
        const CountedElement& other = elements_[static_cast<std::size_t>(joined)];
        return other.isFitting() ? &other : nullptr;
    }

private:
    std::span<const CountedElement> elements_;
    double tolerance_;
    PointGrid grid_;
};

/// The height at an end of a line that the fitting joins.
std::optional<double> endHeight(const CountedElement& line, const CountedElement* fitting) {
    if (fitting == nullptr || !fitting->heights)
        return std::nullopt;
    const HeightRange range = *fitting->heights;
    if (range.low == range.high)
        return range.low;
    if (!line.heights)
        return std::nullopt;
    const auto [least, greatest] = std::minmax(range.low, range.high);
    return std::clamp(line.heights->low, least, greatest);
}

} // namespace

std::vector<std::optional<LineLength>> lineLengths(std::span<const CountedElement> elements) {
    const Joints joints(elements);
    std::vector<std::optional<LineLength>> lengths(elements.size());
    for (std::size_t i = 0; i < elements.size(); ++i) {
        const CountedElement& line = elements[i];
        if (!line.isLine() || line.points.size() != 2)
            continue;
        const AcGePoint3d& from = line.points.front();
        const AcGePoint3d& to = line.points.back();
        const double inPlan = from.distanceTo(to);
        if (!std::isfinite(inPlan))
            continue;
        const std::optional<double> first = endHeight(line, joints.fittingAt(from, i));
        const std::optional<double> second = endHeight(line, joints.fittingAt(to, i));
        lengths[i] = {inPlan, first && second ? std::hypot(inPlan, *first - *second) : inPlan};
    }
    return lengths;
}

} // namespace zu
