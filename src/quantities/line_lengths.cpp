#include "line_lengths.h"

#include <zucomn/model/joints.h>

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace zu {

namespace {

using zucomn::ConnectionPoint;

std::vector<ConnectionPoint> allPoints(std::span<const CountedElement> elements) {
    std::vector<ConnectionPoint> points;
    for (const CountedElement& element : elements)
        for (int number = 0; const AcGePoint3d& point : element.points)
            points.push_back({element.id, number++, point.convert2d()});
    return points;
}

using FittingsById = std::unordered_map<AcDbObjectId, const CountedElement*>;

FittingsById fittingsWithHeights(std::span<const CountedElement> elements) {
    FittingsById fittings;
    for (const CountedElement& element : elements)
        if (element.isFitting() && element.heights)
            fittings.emplace(element.id, &element);
    return fittings;
}

/// The height at an end of a line that the elements join.
std::optional<double> endHeight(const CountedElement& line, const std::vector<AcDbObjectId>& joined,
                                const FittingsById& fittings) {
    const auto found = joined.size() == 1 ? fittings.find(joined.front()) : fittings.end();
    if (found == fittings.end())
        return std::nullopt;
    const HeightRange range = *found->second->heights;
    if (range.low == range.high)
        return range.low;
    if (!line.heights)
        return std::nullopt;
    const auto [least, greatest] = std::minmax(range.low, range.high);
    return std::clamp(line.heights->low, least, greatest);
}

} // namespace

std::vector<std::optional<LineLength>> lineLengths(std::span<const CountedElement> elements) {
    const std::vector<std::vector<AcDbObjectId>> joined = zucomn::joinedElements(allPoints(elements));
    const FittingsById fittings = fittingsWithHeights(elements);
    std::vector<std::optional<LineLength>> lengths;
    lengths.reserve(elements.size());
    auto next = joined.begin();
    for (const CountedElement& element : elements) {
        const auto ends = next;
        next += static_cast<std::ptrdiff_t>(element.points.size());
        std::optional<LineLength>& length = lengths.emplace_back();
        if (!element.isLine() || element.points.size() != 2)
            continue;
        const double inPlan = element.points.front().distanceTo(element.points.back());
        if (!std::isfinite(inPlan))
            continue;
        const std::optional<double> first = endHeight(element, ends[0], fittings);
        const std::optional<double> second = endHeight(element, ends[1], fittings);
        length = {inPlan, first && second ? std::hypot(inPlan, *first - *second) : inPlan};
    }
    return lengths;
}

} // namespace zu
