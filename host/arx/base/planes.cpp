#include "geplane.h"

#include "geline3d.h"

#include <cmath>

// Not made of the axes of vectors: the order in which sources are initialised is not defined.
const AcGePlane AcGePlane::kXYPlane({0, 0, 0}, AcGeVector3d(1, 0, 0), AcGeVector3d(0, 1, 0));
const AcGePlane AcGePlane::kYZPlane({0, 0, 0}, AcGeVector3d(0, 1, 0), AcGeVector3d(0, 0, 1));
const AcGePlane AcGePlane::kZXPlane({0, 0, 0}, AcGeVector3d(0, 0, 1), AcGeVector3d(1, 0, 0));

void AcGePlanarEnt::get(AcGePoint3d& origin, AcGeVector3d& uAxis, AcGeVector3d& vAxis) const {
    origin = origin_;
    uAxis = uAxis_;
    vAxis = vAxis_;
}

void AcGePlanarEnt::getCoefficients(double& a, double& b, double& c, double& d) const {
    const AcGeVector3d n = normal();
    a = n.x;
    b = n.y;
    c = n.z;
    d = -n.dotProduct(origin_.asVector());
}

AcGePoint3d AcGePlanarEnt::closestPointTo(const AcGePoint3d& point, const AcGeTol& /*tol*/) const {
    const AcGeVector3d n = normal();
    return point - n * (point - origin_).dotProduct(n);
}

double AcGePlanarEnt::distanceTo(const AcGePoint3d& point, const AcGeTol& /*tol*/) const {
    return std::abs((point - origin_).dotProduct(normal()));
}

bool AcGePlanarEnt::isNear(const AcGePoint3d& point, const AcGeTol& tol) const {
    return distanceTo(point) <= tol.equalPoint();
}

bool AcGePlanarEnt::intersectWith(const AcGeLinearEnt3d& line, AcGePoint3d& point, const AcGeTol& tol) const {
    return line.intersectWith(*this, point, tol);
}

bool AcGePlanarEnt::isParallelTo(const AcGePlanarEnt& other, const AcGeTol& tol) const {
    return normal().isParallelTo(other.normal(), tol);
}

bool AcGePlanarEnt::isParallelTo(const AcGeLinearEnt3d& line, const AcGeTol& tol) const {
    return normal().isPerpendicularTo(line.direction(), tol);
}

bool AcGePlanarEnt::isPerpendicularTo(const AcGePlanarEnt& other, const AcGeTol& tol) const {
    return normal().isPerpendicularTo(other.normal(), tol);
}

bool AcGePlanarEnt::isPerpendicularTo(const AcGeLinearEnt3d& line, const AcGeTol& tol) const {
    return normal().isParallelTo(line.direction(), tol);
}

bool AcGePlanarEnt::isCoplanarTo(const AcGePlanarEnt& other, const AcGeTol& tol) const {
    return isParallelTo(other, tol) && isNear(other.origin_, tol);
}

void AcGePlanarEnt::apply(const AcGeMatrix3d& matrix) {
    origin_.transformBy(matrix);
    uAxis_.transformBy(matrix);
    vAxis_.transformBy(matrix);
}

AcGePlane::AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& normal)
    : AcGePlane(origin, normal.perpVector(), normal.normal().crossProduct(normal.perpVector())) {}

AcGePlane::AcGePlane(double a, double b, double c, double d)
    : AcGePlane(AcGePoint3d::kOrigin - AcGeVector3d(a, b, c) * (d / AcGeVector3d(a, b, c).lengthSqrd()),
                AcGeVector3d(a, b, c)) {}

double AcGePlane::signedDistanceTo(const AcGePoint3d& point) const {
    return (point - pointOnPlane()).dotProduct(normal());
}

bool AcGePlane::intersectWith(const AcGePlane& other, AcGeLine3d& line, const AcGeTol& tol) const {
    if (isParallelTo(other, tol))
        return false;
    const AcGeVector3d along = normal().crossProduct(other.normal());
    const AcGeVector3d across = along.crossProduct(normal()); // in this plane, towards the other
    const double steps = -other.signedDistanceTo(pointOnPlane()) / across.dotProduct(other.normal());
    line.set(pointOnPlane() + across * steps, along);
    return true;
}
