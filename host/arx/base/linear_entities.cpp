#include "geline3d.h"
#include "gelnsg3d.h"
#include "geplane.h"

#include <algorithm>
#include <cmath>
#include <limits>

// Not made of the axes of vectors: the order in which sources are initialised is not defined.
const AcGeLine3d AcGeLine3d::kXAxis({0, 0, 0}, AcGeVector3d(1, 0, 0));
const AcGeLine3d AcGeLine3d::kYAxis({0, 0, 0}, AcGeVector3d(0, 1, 0));
const AcGeLine3d AcGeLine3d::kZAxis({0, 0, 0}, AcGeVector3d(0, 0, 1));

bool AcGeCurve3d::hasStartPoint(AcGePoint3d& point) const {
    if (interval_.isBoundedBelow())
        point = evalPoint(interval_.lowerBound());
    return interval_.isBoundedBelow();
}

bool AcGeCurve3d::hasEndPoint(AcGePoint3d& point) const {
    if (interval_.isBoundedAbove())
        point = evalPoint(interval_.upperBound());
    return interval_.isBoundedAbove();
}

bool AcGeCurve3d::isClosed(const AcGeTol& tol) const {
    AcGePoint3d start;
    AcGePoint3d end;
    return hasStartPoint(start) && hasEndPoint(end) && start.isEqualTo(end, tol);
}

void AcGeCurve3d::getSamplePoints(int count, AcGePoint3dArray& points) const {
    points.removeAll();
    if (interval_.isUnBounded() || count < 2)
        return;
    points.setPhysicalLength(count);
    for (int i = 0; i < count; ++i)
        points.append(evalPoint(interval_.lowerBound() + interval_.length() * i / (count - 1)));
}

bool AcGeCurve3d::isNear(const AcGePoint3d& point, const AcGeTol& tol) const {
    constexpr double kRoundings = 16.0 * std::numeric_limits<double>::epsilon();
    const double largest = std::abs(point[point.asVector().largestElement()]);
    return distanceTo(point, tol) <= std::max(tol.equalPoint(), kRoundings * largest);
}

AcGePoint3d AcGeLinearEnt3d::evalPoint(double parameter) const {
    return origin_ + along_ * parameter;
}

AcGePoint3d AcGeLineSeg3d::evalPoint(double parameter) const {
    return parameter == 1.0 ? end_ : AcGeLinearEnt3d::evalPoint(parameter);
}

double AcGeLinearEnt3d::paramOf(const AcGePoint3d& point, const AcGeTol& /*tol*/) const {
    const double size = along_.lengthSqrd();
    const double nearest = size > 0.0 ? (point - origin_).dotProduct(along_) / size : 0.0;
    return std::clamp(nearest, interval_.lowerBound(), interval_.upperBound());
}

double AcGeLinearEnt3d::length(double fromParameter, double toParameter, double /*tolerance*/) const {
    return std::abs(toParameter - fromParameter) * along_.length();
}

void AcGeLinearEnt3d::getLine(AcGeLine3d& line) const {
    line.set(origin_, along_);
}

void AcGeLinearEnt3d::getPerpPlane(const AcGePoint3d& point, AcGePlane& plane) const {
    plane.set(point, along_);
}

bool AcGeLinearEnt3d::intersectWith(const AcGeLinearEnt3d& other, AcGePoint3d& point,
                                    const AcGeTol& tol) const {
    if (!direction().crossProduct(other.direction()).isZeroLength(tol)) {
        const AcGeVector3d across = along_.crossProduct(other.along_);
        const AcGeVector3d between = other.origin_ - origin_;
        const double step = between.crossProduct(other.along_).dotProduct(across) / across.lengthSqrd();
        const AcGePoint3d found = evalPoint(step);
        if (isOn(found, tol) && other.isOn(found, tol)) {
            point = found;
            return true;
        }
    }
    return false;
}

bool AcGeLinearEnt3d::intersectWith(const AcGePlanarEnt& plane, AcGePoint3d& point,
                                    const AcGeTol& tol) const {
    const AcGeVector3d normal = plane.normal();
    if (along_.isZeroLength(tol) || isParallelTo(plane, tol))
        return false;
    const AcGePoint3d found =
        evalPoint((plane.pointOnPlane() - origin_).dotProduct(normal) / along_.dotProduct(normal));
    if (!isOn(found, tol))
        return false;
    point = found;
    return true;
}

bool AcGeLinearEnt3d::isOn(const AcGePlane& plane, const AcGeTol& tol) const {
    return isParallelTo(plane, tol) && plane.isOn(origin_, tol);
}

bool AcGeLinearEnt3d::isParallelTo(const AcGeLinearEnt3d& other, const AcGeTol& tol) const {
    return along_.isParallelTo(other.along_, tol);
}

bool AcGeLinearEnt3d::isParallelTo(const AcGePlanarEnt& plane, const AcGeTol& tol) const {
    return plane.isParallelTo(*this, tol);
}

bool AcGeLinearEnt3d::isPerpendicularTo(const AcGeLinearEnt3d& other, const AcGeTol& tol) const {
    return along_.isPerpendicularTo(other.along_, tol);
}

bool AcGeLinearEnt3d::isPerpendicularTo(const AcGePlanarEnt& plane, const AcGeTol& tol) const {
    return plane.isPerpendicularTo(*this, tol);
}

bool AcGeLinearEnt3d::isColinearTo(const AcGeLinearEnt3d& other, const AcGeTol& tol) const {
    return isParallelTo(other, tol) && AcGeLine3d(origin_, along_).isOn(other.origin_, tol);
}

bool AcGeLinearEnt3d::isEqualTo(const AcGeLinearEnt3d& other, const AcGeTol& tol) const {
    if (type() != other.type())
        return false;
    if (interval_.isBounded())
        return origin_.isEqualTo(other.origin_, tol) && evalPoint(1.0).isEqualTo(other.evalPoint(1.0), tol);
    const bool isSameStart = !interval_.isBoundedBelow() || origin_.isEqualTo(other.origin_, tol);
    return isSameStart && isColinearTo(other, tol) && along_.isCodirectionalTo(other.along_, tol);
}

void AcGeLinearEnt3d::apply(const AcGeMatrix3d& matrix) {
    origin_.transformBy(matrix);
    along_.transformBy(matrix);
}
