#pragma once

#include <zucomn/geometry.h>

#include <cmath>
#include <optional>

// The steps that the operations share. An operation computes the direction of each of its lines once and
// passes it on: the trigonometry of a direction dominates the cost.
namespace zu::plane {

inline constexpr double kPi = 3.141592653589793;
inline constexpr double kCoincident = 0.1;
inline constexpr double kSmallNegativeAngle = -0.0001;
inline constexpr double kSideBand = 0.1;
inline constexpr double kParallel = 0.1;
inline constexpr double kOnSegment = 0.5;

inline double toRadians(double angle) {
    return angle * kPi / 180.0;
}

inline double toDegrees(double angle) {
    return angle * 180.0 / kPi;
}

/// Unit vector of an angle in radians.
inline Point unitAt(double angle) {
    return {std::cos(angle), std::sin(angle)};
}

/// Returns the point at a distance from another in the direction of a unit vector.
inline Point moved(const Point& p, const Point& unit, double distance) {
    return {p.x + distance * unit.x, p.y + distance * unit.y};
}

inline Point start(const Line& line) {
    return {line.x1, line.y1};
}

inline Point end(const Line& line) {
    return {line.x2, line.y2};
}

inline Line between(const Point& from, const Point& to) {
    return {from.x, from.y, to.x, to.y};
}

inline bool isDegenerate(const Line& line) {
    return line.x1 == line.x2 && line.y1 == line.y2;
}

inline double length(const Line& line) {
    const double dx = line.x2 - line.x1;
    const double dy = line.y2 - line.y1;
    return std::sqrt(dx * dx + dy * dy);
}

inline std::optional<double> angleInDegrees(const Point& from, const Point& to) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    if (std::abs(dx) > kCoincident) {
        const double angle = std::atan2(dy, dx);
        return toDegrees(angle < kSmallNegativeAngle ? angle + 2.0 * kPi : angle);
    }
    if (std::abs(dx) <= kCoincident && std::abs(dy) <= kCoincident)
        return std::nullopt;
    return toDegrees(dy > 0.0 ? kPi / 2.0 : 3.0 * kPi / 2.0);
}

/// A line with its unit vector and length.
struct DirectedLine {
    Point start;
    Point unit;
    double length;

    /// The line's whole vector, rebuilt from the unit vector.
    Point vector() const { return {unit.x * length, unit.y * length}; }
};

inline double angleInRadians(const Line& line, double length) {
    if (line.y1 == line.y2)
        return line.x1 > line.x2 ? kPi : 0.0;
    if (line.x1 == line.x2)
        return line.y1 > line.y2 ? 3.0 * kPi / 2.0 : kPi / 2.0;
    const double angle = std::acos((line.x2 - line.x1) / length);
    return line.y1 > line.y2 ? 2.0 * kPi - angle : angle;
}

/// Returns nullopt for a degenerate line.
inline std::optional<DirectedLine> directed(const Line& line) {
    if (isDegenerate(line))
        return std::nullopt;
    const double lineLength = length(line);
    return DirectedLine{start(line), unitAt(angleInRadians(line, lineLength)), lineLength};
}

/// Returns 1 for a point left of the line, -1 right of it, 0 on it.
inline int sideOf(const DirectedLine& line, const Point& p) {
    const Point d = line.vector();
    const double cross = (p.y - line.start.y) * d.x - (p.x - line.start.x) * d.y;
    if (cross > kSideBand)
        return 1;
    return cross < -kSideBand ? -1 : 0;
}

inline Point footOn(const DirectedLine& line, const Point& p) {
    const double offset = (p.y - line.start.y) * line.unit.x - (p.x - line.start.x) * line.unit.y;
    return {p.x + line.unit.y * offset, p.y - line.unit.x * offset};
}

inline bool isOnSegment(const Line& segment, const Point& p, double tolerance) {
    const double detour = length(between(start(segment), p)) + length(between(end(segment), p));
    return std::abs(length(segment) - detour) < tolerance;
}

/// The line a x + b y = c.
struct ImplicitLine {
    double a;
    double b;
    double c;

    explicit ImplicitLine(const DirectedLine& line)
        : a(-line.vector().y), b(line.vector().x), c(a * line.start.x + b * line.start.y) {}
};

/// Returns nullopt for parallel lines.
inline std::optional<Point> intersection(const ImplicitLine& l, const ImplicitLine& m) {
    const double det = l.a * m.b - m.a * l.b;
    if (std::abs(det) <= kParallel)
        return std::nullopt;
    return Point{(l.c * m.b - m.c * l.b) / det, (l.a * m.c - m.a * l.c) / det};
}

} // namespace zu::plane
