#include "curve_piece.h"

#include "geline3d.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace zuhost {

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;

/// Returns the angle a whole number of turns away that is at or after the start.
double afterStart(double angle, double start) {
    const double turned = start + std::fmod(std::fmod(angle - start, kTurn) + kTurn, kTurn);
    return turned;
}

/// Integrates the speed of an ellipse by Gauss-Legendre quadrature, a sixteenth of a turn at a time.
double ellipseLength(const CurvePiece& piece, double from, double to) {
    constexpr std::array kNodes{0.0, 0.5384693101056831, -0.5384693101056831, 0.9061798459386640,
                                -0.9061798459386640};
    constexpr std::array kWeights{0.5688888888888889, 0.4786286704993665, 0.4786286704993665,
                                  0.2369268850561891, 0.2369268850561891};
    const double wanted = std::ceil(std::abs(to - from) / (kTurn / 64.0));
    const int parts = wanted >= 1.0 ? static_cast<int>(std::min(wanted, 1024.0)) : 1;
    const double half = (to - from) / (2.0 * parts);
    double sum = 0.0;
    for (int part = 0; part < parts; ++part) {
        const double middle = from + half * (2 * part + 1);
        for (std::size_t i = 0; i < kNodes.size(); ++i)
            sum += kWeights[i] * piece.derivative(middle + half * kNodes[i]).length();
    }
    return sum * half;
}

/// Returns the angle of the point of an ellipse closest to `point`: the best of samples, then improved.
double closestOnEllipse(const CurvePiece& piece, const AcGePoint3d& point, double from, double to) {
    constexpr int kSamples = 64;
    double best = from;
    double nearest = std::numeric_limits<double>::infinity();
    for (int i = 0; i <= kSamples; ++i) {
        const double t = from + (to - from) * i / kSamples;
        const double distance = piece.at(t).distanceTo(point);
        if (distance < nearest) {
            nearest = distance;
            best = t;
        }
    }
    const double step = (to - from) / kSamples;
    double low = std::max(from, best - step);
    double high = std::min(to, best + step);
    // The distance falls towards the closest point on both sides.
    for (int i = 0; i < 60; ++i) {
        const double middle = (low + high) / 2.0;
        const bool falls = (piece.at(middle) - point).dotProduct(piece.derivative(middle)) < 0.0;
        (falls ? low : high) = middle;
    }
    return (low + high) / 2.0;
}

struct Hit {
    double param;
    AcGePoint3d point;
};

void meet(const AcGeCurve3d& a, const AcGeCurve3d& b, std::vector<AcGePoint3d>& found) {
    AcGePoint3d points[2];
    int count = 0;
    const auto* const lineA = dynamic_cast<const AcGeLinearEnt3d*>(&a);
    const auto* const lineB = dynamic_cast<const AcGeLinearEnt3d*>(&b);
    if (lineA != nullptr && lineB != nullptr)
        count = lineA->intersectWith(*lineB, points[0]) ? 1 : 0;
    else if (lineA != nullptr)
        static_cast<const AcGeCircArc3d&>(b).intersectWith(*lineA, count, points[0], points[1]);
    else if (lineB != nullptr)
        static_cast<const AcGeCircArc3d&>(a).intersectWith(*lineB, count, points[0], points[1]);
    else
        static_cast<const AcGeCircArc3d&>(a).intersectWith(static_cast<const AcGeCircArc3d&>(b), count,
                                                           points[0], points[1]);
    found.assign(points, points + count);
}

/// Keeps the first of points that are found twice, where pieces of a curve meet.
void appendDistinct(std::vector<Hit>& hits, std::vector<AcGePoint3d>& points) {
    std::stable_sort(hits.begin(), hits.end(), [](const Hit& a, const Hit& b) { return a.param < b.param; });
    const AcGeTol tolerance = AcGeTol().setEqualPoint(1e-8);
    const std::size_t before = points.size();
    for (const Hit& hit : hits)
        if (points.size() == before || !points.back().isEqualTo(hit.point, tolerance))
            points.push_back(hit.point);
    if (points.size() > before + 1 && points.back().isEqualTo(points[before], tolerance))
        points.pop_back();
}

using Geometries = std::vector<std::unique_ptr<AcGeCurve3d>>;

Geometries geometriesOf(const CurvePieces& pieces, bool extended) {
    Geometries geometries;
    geometries.reserve(pieces.size());
    for (const CurvePiece& piece : pieces)
        geometries.push_back(piece.geometry(extended));
    return geometries;
}

} // namespace

CurvePiece CurvePiece::segment(const AcGePoint3d& from, const AcGePoint3d& to, double firstParam,
                               double lastParam) {
    CurvePiece piece;
    piece.centre = from;
    piece.across = to - from;
    piece.firstParam = firstParam;
    piece.lastParam = lastParam;
    return piece;
}

CurvePiece CurvePiece::arc(const AcGePoint3d& centre, const AcGeVector3d& along, const AcGeVector3d& across,
                           double start, double end, double firstParam, double lastParam) {
    return {true, centre, along, across, start, end, firstParam, lastParam};
}

CurvePiece CurvePiece::bulged(const AcGePoint3d& from, const AcGePoint3d& to, const AcGeVector3d& normal,
                              double bulge, double firstParam) {
    const AcGeVector3d chord = to - from;
    if (bulge == 0.0 || !std::isfinite(bulge) || chord.isZeroLength())
        return segment(from, to, firstParam, firstParam + 1.0);
    const AcGeVector3d side = normal.crossProduct(chord); // a quarter counter-clockwise from the chord
    const AcGePoint3d centre = from + chord / 2.0 + side * ((1.0 - bulge * bulge) / (4.0 * bulge));
    const AcGeVector3d along = from - centre;
    const AcGeVector3d across = (bulge > 0.0 ? normal : -normal).crossProduct(along);
    return arc(centre, along, across, 0.0, 4.0 * std::atan(std::abs(bulge)), firstParam, firstParam + 1.0);
}

AcGePoint3d CurvePiece::at(double t) const {
    return isArc ? centre + along * std::cos(t) + across * std::sin(t) : centre + across * t;
}

AcGeVector3d CurvePiece::derivative(double t) const {
    return isArc ? across * std::cos(t) - along * std::sin(t) : across;
}

bool CurvePiece::isCircular() const {
    const double size = std::max(along.lengthSqrd(), across.lengthSqrd());
    return isArc && std::abs(along.lengthSqrd() - across.lengthSqrd()) <= 1e-9 * size &&
           std::abs(along.dotProduct(across)) <= 1e-9 * size;
}

double CurvePiece::lengthTo(double t) const {
    if (!isArc)
        return across.length() * t;
    return isCircular() ? along.length() * (t - start) : ellipseLength(*this, start, t);
}

double CurvePiece::atLength(double length) const {
    const double whole = this->length();
    if (!(whole > 0.0))
        return start;
    const double guess = start + (end - start) * length / whole;
    if (!isArc || isCircular())
        return guess;
    double low = start;
    double high = end;
    for (int i = 0; i < 60; ++i) {
        const double middle = (low + high) / 2.0;
        (lengthTo(middle) < length ? low : high) = middle;
    }
    return (low + high) / 2.0;
}

double CurvePiece::closest(const AcGePoint3d& point, bool extended) const {
    if (!isArc) {
        const double size = across.lengthSqrd();
        const double t = size > 0.0 ? (point - centre).dotProduct(across) / size : 0.0;
        return extended ? t : std::clamp(t, start, end);
    }
    if (!isCircular())
        return closestOnEllipse(*this, point, start, extended ? start + kTurn : end);
    const AcGeVector3d out = point - centre;
    const double t = afterStart(std::atan2(out.dotProduct(across), out.dotProduct(along)), start);
    if (extended || t <= end)
        return t;
    return t - end < start + kTurn - t ? end : start;
}

AcGeVector3d CurvePiece::areaAbout(const AcGePoint3d& origin) const {
    if (!isArc)
        return (first() - origin).crossProduct(last() - origin) / 2.0;
    const AcGeVector3d sector = along.crossProduct(across) * ((end - start) / 2.0);
    return sector + (centre - origin).crossProduct(last() - first()) / 2.0;
}

double CurvePiece::toParam(double t) const {
    return t == end ? lastParam : firstParam + (lastParam - firstParam) * (t - start) / (end - start);
}

double CurvePiece::fromParam(double param) const {
    const double extent = lastParam - firstParam;
    return extent != 0.0 ? start + (end - start) * (param - firstParam) / extent : start;
}

CurvePiece CurvePiece::transformed(const AcGeMatrix3d& matrix) const {
    CurvePiece piece = *this;
    piece.centre.transformBy(matrix);
    piece.along.transformBy(matrix);
    piece.across.transformBy(matrix);
    return piece;
}

void CurvePiece::addTo(AcDbExtents& extents) const {
    extents.addPoint(first());
    extents.addPoint(last());
    if (!isArc)
        return;
    // Along each axis of the world, an arc is outermost where its direction is perpendicular to the axis.
    for (unsigned int axis = 0; axis < 3; ++axis) {
        const double outermost = std::atan2(across[axis], along[axis]);
        for (const double t : {outermost, outermost + std::numbers::pi})
            if (afterStart(t, start) <= end)
                extents.addPoint(at(t));
    }
}

std::unique_ptr<AcGeCurve3d> CurvePiece::geometry(bool extended) const {
    if (!isArc && extended)
        return std::make_unique<AcGeLine3d>(centre, across);
    if (!isArc)
        return std::make_unique<AcGeLineSeg3d>(centre, across);
    if (!isCircular())
        return nullptr;
    return std::make_unique<AcGeCircArc3d>(centre, along.crossProduct(across), along, along.length(),
                                           extended ? 0.0 : start, extended ? kTurn : end);
}

bool intersect(const CurvePieces& a, bool extendsA, const CurvePieces& b, bool extendsB,
               std::vector<AcGePoint3d>& points) {
    const Geometries ofA = geometriesOf(a, extendsA);
    const Geometries ofB = geometriesOf(b, extendsB);
    const auto isMissing = [](const auto& geometry) { return geometry == nullptr; };
    if (std::any_of(ofA.begin(), ofA.end(), isMissing) || std::any_of(ofB.begin(), ofB.end(), isMissing))
        return false;
    std::vector<Hit> hits;
    std::vector<AcGePoint3d> found;
    for (std::size_t i = 0; i < a.size(); ++i)
        for (const auto& other : ofB) {
            meet(*ofA[i], *other, found);
            for (const AcGePoint3d& point : found)
                hits.push_back({a[i].toParam(a[i].closest(point, extendsA)), point});
        }
    appendDistinct(hits, points);
    return true;
}

} // namespace zuhost
