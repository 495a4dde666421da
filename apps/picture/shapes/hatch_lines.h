#pragma once

#include <QPainterPath>

#include <functional>
#include <vector>

namespace zu::picture {

/// One family of parallel lines of a hatch pattern.
struct PatternLine {
    double angle = 0.0; ///< Radians.
    QPointF base;       ///< A point on a line, where its dashes start.
    QPointF offset;     ///< To the same point of the next line.
    std::vector<double> dashes;
};

enum class HatchResult { drawn, tooDense, stopped };

/// Produces the parts of a family's lines that lie in an area (by the odd-even rule), dashes resolved, in
/// paths of limited size. `take` counts work; false stops. An area that would take more than 100,000 lines is
/// too dense.
HatchResult hatchLines(const QPainterPath& area, const PatternLine& line,
                       const std::function<bool(std::uint64_t)>& take,
                       const std::function<void(const QPainterPath&)>& draw);

} // namespace zu::picture
