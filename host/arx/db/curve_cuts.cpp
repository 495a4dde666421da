// Planes, parts and parallels of curves.

#include "angles.h"
#include "curve_piece.h"
#include "dbelipse.h"
#include "dbents.h"
#include "geplane.h"

#include <cmath>

using zuhost::CurvePiece;
using zuhost::CurvePieces;

namespace {

constexpr double kOnPlane = 1e-6;

/// Returns four points of each arc, and the ends of each segment.
std::vector<AcGePoint3d> samplesOf(const CurvePieces& pieces) {
    std::vector<AcGePoint3d> points;
    for (const CurvePiece& piece : pieces)
        for (int i = 0; i <= 3; ++i)
            points.push_back(piece.at(std::lerp(piece.start, piece.end, i / 3.0)));
    return points;
}

template <typename Measure>
const AcGePoint3d& farthest(const std::vector<AcGePoint3d>& points, Measure measure) {
    return *std::ranges::max_element(points, {}, measure);
}

/// Finds the plane of the points: that through the first, the one farthest from it, and the one farthest from
/// the line through both. `up` is the normal to prefer where points leave a choice.
AcDb::Planarity planeThrough(const std::vector<AcGePoint3d>& points, const AcGeVector3d& up,
                             AcGePlane& plane) {
    const AcGePoint3d& origin = points.front();
    const AcGeVector3d line =
        farthest(points, [&](const AcGePoint3d& p) { return origin.distanceTo(p); }) - origin;
    const AcGeVector3d axis = line.length() > kOnPlane ? line.normal() : AcGeVector3d();
    const AcGeVector3d normal = axis.crossProduct(
        farthest(points, [&](const AcGePoint3d& p) { return axis.crossProduct(p - origin).length(); }) -
        origin);
    if (!(normal.length() > kOnPlane)) {
        const AcGeVector3d side = up - axis * up.dotProduct(axis);
        plane.set(origin, side.length() > kOnPlane ? side.normal() : axis.perpVector());
        return AcDb::kLinear;
    }
    const AcGeVector3d unit = normal.normal();
    for (const AcGePoint3d& point : points)
        if (std::abs((point - origin).dotProduct(unit)) > kOnPlane)
            return AcDb::kNonPlanar;
    plane.set(origin, unit.dotProduct(up) < 0.0 ? -unit : unit);
    return AcDb::kPlanar;
}

/// Gives a new curve its thickness and properties.
template <typename Curve>
void finish(const AcDbCurve& source, double thickness, std::unique_ptr<Curve> curve,
            std::unique_ptr<AcDbCurve>& result) {
    if (thickness != 0.0)
        curve->setThickness(thickness);
    curve->setPropertiesFrom(&source);
    result = std::move(curve);
}

} // namespace

// ---- planes

bool AcDbEntity::isPlanar() const {
    AcGePlane plane;
    AcDb::Planarity planarity{};
    return getPlane(plane, planarity) == Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::getPlane(AcGePlane& /*plane*/, AcDb::Planarity& /*planarity*/) const {
    return Acad::eNotImplementedYet;
}

Acad::ErrorStatus AcDbCurve::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const {
    const CurvePieces all = pieces();
    if (all.empty())
        return Acad::eDegenerateGeometry;
    const AcGeVector3d up = extrusion();
    if (up.isZeroLength() || AcDbLine::cast(this) != nullptr) {
        planarity = planeThrough(samplesOf(all), up.isZeroLength() ? AcGeVector3d::kZAxis : up, plane);
        return planarity != AcDb::kNonPlanar ? Acad::eOk : Acad::eNonPlanarEntity;
    }
    const CurvePiece& first = all.front();
    plane.set(all.size() == 1 && first.isArc ? first.centre : first.first(), up);
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const {
    plane.set(position(), normal());
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbMText::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const {
    plane.set(location(), normal());
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}
Acad::ErrorStatus AcDbBlockReference::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const {
    plane.set(position(), normal());
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}

// ---- directions, parts, parallels

Acad::ErrorStatus AcDbCurve::reverseCurve() {
    const Acad::ErrorStatus status = assertWriteEnabled();
    return status == Acad::eOk ? reverse() : status;
}

Acad::ErrorStatus AcDbCurve::getSplitCurves(const AcGeDoubleArray& params, AcDbVoidPtrArray& curves) const {
    const CurvePieces all = pieces();
    if (all.empty())
        return Acad::eDegenerateGeometry;
    const double first = all.front().firstParam;
    const double last = all.back().lastParam;
    const double slack = 1e-9 * std::max(1.0, std::abs(last));
    std::vector<double> cuts;
    for (const double param : params) {
        if (!(param >= first - slack && param <= last + slack) || (!cuts.empty() && !(param > cuts.back())))
            return Acad::eInvalidInput;
        cuts.push_back(param);
    }
    if (isPeriodic()) {
        if (cuts.empty())
            return Acad::eInvalidInput;
        if (cuts.size() == 1 || cuts.back() < cuts.front() + zuhost::kTurn - slack)
            cuts.push_back(cuts.front() + zuhost::kTurn);
    } else {
        std::erase_if(cuts, [&](double param) { return param <= first + slack || param >= last - slack; });
        cuts.insert(cuts.begin(), first);
        cuts.push_back(last);
    }
    std::vector<std::unique_ptr<AcDbCurve>> parts(cuts.size() - 1);
    for (std::size_t i = 0; i < parts.size(); ++i)
        if (const Acad::ErrorStatus status = cut(cuts[i], cuts[i + 1], parts[i]); status != Acad::eOk)
            return status;
    for (auto& part : parts)
        curves.append(part.release());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getSplitCurves(const AcGePoint3dArray& points, AcDbVoidPtrArray& curves) const {
    AcGeDoubleArray params;
    for (const AcGePoint3d& point : points) {
        double param = 0.0;
        if (const Acad::ErrorStatus status = getParamAtPoint(point, param); status != Acad::eOk)
            return status;
        params.append(param);
    }
    return getSplitCurves(params, curves);
}

Acad::ErrorStatus AcDbCurve::getOffsetCurves(double distance, AcDbVoidPtrArray& curves) const {
    if (!std::isfinite(distance))
        return Acad::eInvalidInput;
    std::unique_ptr<AcDbCurve> parallel;
    const Acad::ErrorStatus status = offset(distance, parallel);
    if (status == Acad::eOk)
        curves.append(parallel.release());
    return status;
}

Acad::ErrorStatus AcDbCurve::offset(double /*distance*/, std::unique_ptr<AcDbCurve>& /*parallel*/) const {
    return Acad::eNotImplementedYet;
}

// ---- lines

Acad::ErrorStatus AcDbLine::reverse() {
    const AcGePoint3d start = startPoint();
    setStartPoint(endPoint());
    return setEndPoint(start);
}

Acad::ErrorStatus AcDbLine::cut(double from, double to, std::unique_ptr<AcDbCurve>& part) const {
    const CurvePiece piece = pieces().front();
    auto line = std::make_unique<AcDbLine>(piece.at(piece.fromParam(from)), piece.at(piece.fromParam(to)));
    line->setNormal(normal());
    finish(*this, thickness(), std::move(line), part);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::offset(double distance, std::unique_ptr<AcDbCurve>& parallel) const {
    const AcGeVector3d right = (endPoint() - startPoint()).crossProduct(normal());
    if (right.isZeroLength())
        return Acad::eDegenerateGeometry;
    const AcGeVector3d by = right.normal() * distance;
    auto line = std::make_unique<AcDbLine>(startPoint() + by, endPoint() + by);
    line->setNormal(normal());
    finish(*this, thickness(), std::move(line), parallel);
    return Acad::eOk;
}

// ---- circles, arcs, ellipses

Acad::ErrorStatus AcDbCircle::cut(double from, double to, std::unique_ptr<AcDbCurve>& part) const {
    finish(*this, thickness(),
           std::make_unique<AcDbArc>(center(), normal(), radius(), from, std::fmod(to, zuhost::kTurn)), part);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::offset(double distance, std::unique_ptr<AcDbCurve>& parallel) const {
    if (!(radius() + distance > 0.0))
        return Acad::eInvalidInput;
    finish(*this, thickness(), std::make_unique<AcDbCircle>(center(), normal(), radius() + distance),
           parallel);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::cut(double from, double to, std::unique_ptr<AcDbCurve>& part) const {
    finish(*this, thickness(),
           std::make_unique<AcDbArc>(center(), normal(), radius(), std::fmod(from, zuhost::kTurn),
                                     std::fmod(to, zuhost::kTurn)),
           part);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::offset(double distance, std::unique_ptr<AcDbCurve>& parallel) const {
    if (!(radius() + distance > 0.0))
        return Acad::eInvalidInput;
    finish(*this, thickness(),
           std::make_unique<AcDbArc>(center(), normal(), radius() + distance, startAngle(), endAngle()),
           parallel);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEllipse::cut(double from, double to, std::unique_ptr<AcDbCurve>& part) const {
    auto ellipse = std::make_unique<AcDbEllipse>(center(), normal(), majorAxis(), radiusRatio());
    ellipse->setStartParam(from);
    ellipse->setEndParam(to);
    ellipse->setPropertiesFrom(this);
    part = std::move(ellipse);
    return Acad::eOk;
}
