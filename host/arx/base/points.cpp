#include "gemat2d.h"
#include "gemat3d.h"
#include "geplane.h"

const AcGePoint2d AcGePoint2d::kOrigin(0, 0);
const AcGePoint3d AcGePoint3d::kOrigin(0, 0, 0);

AcGePoint2d& AcGePoint2d::rotateBy(double angle, const AcGePoint2d& centre) {
    return transformBy(AcGeMatrix2d::rotation(angle, centre));
}

AcGePoint2d& AcGePoint2d::mirror(const AcGeLine2d& line) {
    return transformBy(AcGeMatrix2d::mirroring(line));
}

AcGePoint2d& AcGePoint2d::scaleBy(double factor, const AcGePoint2d& centre) {
    return *this = centre + (*this - centre) * factor;
}

AcGePoint2d& AcGePoint2d::transformBy(const AcGeMatrix2d& matrix) {
    return *this = matrix * *this;
}

AcGePoint2d& AcGePoint2d::setToProduct(const AcGeMatrix2d& matrix, const AcGePoint2d& p) {
    return *this = matrix * p;
}

AcGePoint3d& AcGePoint3d::set(const AcGePlanarEnt& plane, const AcGePoint2d& p) {
    return *this = plane.pointOnPlane() + AcGeVector3d(plane, p.asVector());
}

AcGePoint2d AcGePoint3d::convert2d(const AcGePlanarEnt& plane) const {
    return AcGePoint2d() + (*this - plane.pointOnPlane()).convert2d(plane);
}

AcGePoint3d AcGePoint3d::project(const AcGePlane& plane, const AcGeVector3d& direction) const {
    return plane.pointOnPlane() + (*this - plane.pointOnPlane()).project(plane.normal(), direction);
}

AcGePoint3d AcGePoint3d::orthoProject(const AcGePlane& plane) const {
    return project(plane, plane.normal());
}

AcGePoint3d& AcGePoint3d::rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& centre) {
    return transformBy(AcGeMatrix3d::rotation(angle, axis, centre));
}

AcGePoint3d& AcGePoint3d::mirror(const AcGePlane& plane) {
    return transformBy(AcGeMatrix3d::mirroring(plane));
}

AcGePoint3d& AcGePoint3d::transformBy(const AcGeMatrix3d& matrix) {
    return *this = matrix * *this;
}

AcGePoint3d& AcGePoint3d::scaleBy(double factor, const AcGePoint3d& centre) {
    return *this = centre + (*this - centre) * factor;
}

AcGePoint3d& AcGePoint3d::setToProduct(const AcGeMatrix3d& matrix, const AcGePoint3d& p) {
    return *this = matrix * p;
}
