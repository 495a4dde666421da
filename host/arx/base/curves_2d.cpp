#include "gearc2d.h"
#include "geline2d.h"

// Not made of the axes of vectors: the order in which sources are initialised is not defined.
const AcGeLine2d AcGeLine2d::kXAxis({0, 0}, AcGeVector2d(1, 0));
const AcGeLine2d AcGeLine2d::kYAxis({0, 0}, AcGeVector2d(0, 1));

namespace {

AcGePoint3d lifted(const AcGePoint2d& p) {
    return {p.x, p.y, 0.0};
}

AcGeVector3d lifted(const AcGeVector2d& v) {
    return {v.x, v.y, 0.0};
}

AcGeMatrix3d lifted(const AcGeMatrix2d& matrix) {
    AcGePoint2d origin;
    AcGeVector2d x;
    AcGeVector2d y;
    matrix.getCoordSystem(origin, x, y);
    return AcGeMatrix3d().setCoordSystem(lifted(origin), lifted(x), lifted(y), {0, 0, 1});
}

AcGePoint2d flat(const AcGePoint3d& p) {
    return {p.x, p.y};
}

/// Stores the points that were found in space; the others stay unchanged.
bool storeFlat(int count, const AcGePoint3d (&found)[2], AcGePoint2d& first, AcGePoint2d& second) {
    if (count > 0)
        first = flat(found[0]);
    if (count > 1)
        second = flat(found[1]);
    return count > 0;
}

/// Returns the point of the arc in the middle between its ends.
AcGePoint2d middleOf(const AcGePoint2d& start, const AcGePoint2d& end, double rise) {
    const AcGeVector2d chord = end - start;
    return start + chord / 2.0 - chord.normal().perpVector() * rise;
}

} // namespace

AcGePoint2d AcGeCurve2d::evalPoint(double parameter) const {
    return flat(inSpace().evalPoint(parameter));
}

double AcGeCurve2d::paramOf(const AcGePoint2d& point, const AcGeTol& tol) const {
    return inSpace().paramOf(lifted(point), tol);
}

AcGePoint2d AcGeCurve2d::closestPointTo(const AcGePoint2d& point, const AcGeTol& tol) const {
    return flat(inSpace().closestPointTo(lifted(point), tol));
}

double AcGeCurve2d::distanceTo(const AcGePoint2d& point, const AcGeTol& tol) const {
    return inSpace().distanceTo(lifted(point), tol);
}

bool AcGeCurve2d::isOn(const AcGePoint2d& point, const AcGeTol& tol) const {
    return inSpace().isOn(lifted(point), tol);
}

bool AcGeCurve2d::isOn(const AcGePoint2d& point, double& parameter, const AcGeTol& tol) const {
    return inSpace().isOn(lifted(point), parameter, tol);
}

bool AcGeCurve2d::hasStartPoint(AcGePoint2d& point) const {
    AcGePoint3d start = lifted(point);
    const bool has = inSpace().hasStartPoint(start);
    point = flat(start);
    return has;
}

bool AcGeCurve2d::hasEndPoint(AcGePoint2d& point) const {
    AcGePoint3d end = lifted(point);
    const bool has = inSpace().hasEndPoint(end);
    point = flat(end);
    return has;
}

void AcGeCurve2d::getSamplePoints(int count, AcGePoint2dArray& points) const {
    AcGePoint3dArray samples;
    inSpace().getSamplePoints(count, samples);
    points.removeAll();
    for (const AcGePoint3d& sample : samples)
        points.append(flat(sample));
}

AcGePoint2d AcGeLinearEnt2d::pointOnLine() const {
    return flat(inSpace().pointOnLine());
}

AcGeVector2d AcGeLinearEnt2d::direction() const {
    const AcGeVector3d direction = inSpace().direction();
    return {direction.x, direction.y};
}

void AcGeLinearEnt2d::getLine(AcGeLine2d& line) const {
    line.set(pointOnLine(), direction());
}

void AcGeLinearEnt2d::getPerpLine(const AcGePoint2d& point, AcGeLine2d& line) const {
    line.set(point, direction().perpVector());
}

bool AcGeLinearEnt2d::intersectWith(const AcGeLinearEnt2d& other, AcGePoint2d& point,
                                    const AcGeTol& tol) const {
    AcGePoint3d found;
    if (!inSpace().intersectWith(other.inSpace(), found, tol))
        return false;
    point = flat(found);
    return true;
}

void AcGeLine2d::apply(const AcGeMatrix2d& matrix) {
    line_.transformBy(lifted(matrix));
}

AcGeCircArc2d::AcGeCircArc2d(const AcGePoint2d& centre, double radius)
    : arc_(lifted(centre), {0, 0, 1}, radius) {}

AcGeCircArc2d::AcGeCircArc2d(const AcGePoint2d& centre, double radius, double startAngle, double endAngle,
                             const AcGeVector2d& reference, bool isClockWise)
    : arc_(lifted(centre), {0, 0, isClockWise ? -1.0 : 1.0}, lifted(reference), radius, startAngle,
           endAngle) {}

AcGeCircArc2d::AcGeCircArc2d(const AcGePoint2d& start, const AcGePoint2d& through, const AcGePoint2d& end)
    : arc_(lifted(start), lifted(through), lifted(end)) {}

AcGeCircArc2d::AcGeCircArc2d(const AcGePoint2d& start, const AcGePoint2d& end, double bulge, bool bulgeFlag)
    : AcGeCircArc2d(start, middleOf(start, end, bulgeFlag ? bulge * start.distanceTo(end) / 2.0 : bulge),
                    end) {}

bool AcGeCircArc2d::isInside(const AcGePoint2d& point, const AcGeTol& tol) const {
    return arc_.isInside(lifted(point), tol);
}

AcGeCircArc2d& AcGeCircArc2d::setCenter(const AcGePoint2d& centre) {
    arc_.setCenter(lifted(centre));
    return *this;
}

AcGeCircArc2d& AcGeCircArc2d::setRadius(double radius) {
    arc_.setRadius(radius);
    return *this;
}

AcGeCircArc2d& AcGeCircArc2d::setAngles(double startAngle, double endAngle) {
    arc_.setAngles(startAngle, endAngle);
    return *this;
}

bool AcGeCircArc2d::intersectWith(const AcGeLinearEnt2d& line, int& count, AcGePoint2d& first,
                                  AcGePoint2d& second, const AcGeTol& tol) const {
    AcGePoint3d found[2];
    arc_.intersectWith(line.inSpace(), count, found[0], found[1], tol);
    return storeFlat(count, found, first, second);
}

bool AcGeCircArc2d::intersectWith(const AcGeCircArc2d& other, int& count, AcGePoint2d& first,
                                  AcGePoint2d& second, const AcGeTol& tol) const {
    AcGePoint3d found[2];
    arc_.intersectWith(other.arc_, count, found[0], found[1], tol);
    return storeFlat(count, found, first, second);
}

bool AcGeCircArc2d::tangent(const AcGePoint2d& point, AcGeLine2d& line, const AcGeTol& tol) const {
    AcGeLine3d found;
    if (!arc_.tangent(lifted(point), found, tol))
        return false;
    line.set(flat(found.pointOnLine()), AcGeVector2d(found.direction().x, found.direction().y));
    return true;
}

void AcGeCircArc2d::apply(const AcGeMatrix2d& matrix) {
    arc_.transformBy(lifted(matrix));
}
