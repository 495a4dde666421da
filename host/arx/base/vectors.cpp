#include "geline2d.h"
#include "gemat2d.h"
#include "gemat3d.h"
#include "geplane.h"

#include <algorithm>
#include <numbers>

AcGeTol AcGeContext::gTol;

const AcGeVector2d AcGeVector2d::kIdentity(0, 0);
const AcGeVector2d AcGeVector2d::kXAxis(1, 0);
const AcGeVector2d AcGeVector2d::kYAxis(0, 1);
const AcGeVector3d AcGeVector3d::kIdentity(0, 0, 0);
const AcGeVector3d AcGeVector3d::kXAxis(1, 0, 0);
const AcGeVector3d AcGeVector3d::kYAxis(0, 1, 0);
const AcGeVector3d AcGeVector3d::kZAxis(0, 0, 1);

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;

/// Returns the angle in [0, 2 pi).
double withinTurn(double angle) {
    if (angle >= 0.0)
        return angle;
    const double turned = angle + kTurn;
    return turned < kTurn ? turned : 0.0;
}

AcGeVector3d lifted(const AcGeVector2d& v) {
    return {v.x, v.y, 0.0};
}

} // namespace

AcGeVector2d AcGeVector2d::normal(const AcGeTol& tol) const {
    const double size = length();
    return size > tol.equalVector() ? *this / size : *this;
}

double AcGeVector2d::angle() const {
    return withinTurn(std::atan2(y, x));
}

double AcGeVector2d::angleTo(const AcGeVector2d& v) const {
    return lifted(*this).angleTo(lifted(v));
}

double AcGeVector2d::angleToCCW(const AcGeVector2d& v) const {
    return lifted(*this).angleTo(lifted(v), AcGeVector3d::kZAxis);
}

bool AcGeVector2d::isParallelTo(const AcGeVector2d& v, const AcGeTol& tol) const {
    return lifted(*this).isParallelTo(lifted(v), tol);
}

bool AcGeVector2d::isCodirectionalTo(const AcGeVector2d& v, const AcGeTol& tol) const {
    return lifted(*this).isCodirectionalTo(lifted(v), tol);
}

bool AcGeVector2d::isPerpendicularTo(const AcGeVector2d& v, const AcGeTol& tol) const {
    return lifted(*this).isPerpendicularTo(lifted(v), tol);
}

AcGeVector2d& AcGeVector2d::rotateBy(double angle) {
    return transformBy(AcGeMatrix2d::rotation(angle));
}

AcGeVector2d& AcGeVector2d::mirror(const AcGeVector2d& line) {
    const AcGeVector2d along = line.normal();
    return *this = along * (2.0 * dotProduct(along)) - *this;
}

AcGeVector2d& AcGeVector2d::transformBy(const AcGeMatrix2d& matrix) {
    return *this = matrix * *this;
}

AcGeVector2d& AcGeVector2d::setToProduct(const AcGeMatrix2d& matrix, const AcGeVector2d& v) {
    return *this = matrix * v;
}

AcGeVector3d& AcGeVector3d::set(const AcGePlanarEnt& plane, const AcGeVector2d& v) {
    AcGePoint3d origin;
    AcGeVector3d uAxis;
    AcGeVector3d vAxis;
    plane.get(origin, uAxis, vAxis);
    return *this = uAxis * v.x + vAxis * v.y;
}

double AcGeVector3d::length() const {
    return std::sqrt(lengthSqrd());
}

unsigned int AcGeVector3d::largestElement() const {
    const double sizes[] = {std::abs(x), std::abs(y), std::abs(z)};
    return static_cast<unsigned int>(std::max_element(std::begin(sizes), std::end(sizes)) - sizes);
}

AcGeVector3d AcGeVector3d::normal(const AcGeTol& tol) const {
    const double size = length();
    return size > tol.equalVector() ? *this / size : *this;
}

AcGeVector3d AcGeVector3d::perpVector() const {
    constexpr double kNearlyVertical = 1.0 / 64.0;
    const AcGeVector3d unit = normal();
    const bool isVertical = std::abs(unit.x) < kNearlyVertical && std::abs(unit.y) < kNearlyVertical;
    return (isVertical ? kYAxis : kZAxis).crossProduct(unit).normal();
}

double AcGeVector3d::angleTo(const AcGeVector3d& v) const {
    return std::atan2(crossProduct(v).length(), dotProduct(v));
}

double AcGeVector3d::angleTo(const AcGeVector3d& v, const AcGeVector3d& reference) const {
    const double angle = angleTo(v);
    return reference.dotProduct(crossProduct(v)) >= 0.0 ? angle : withinTurn(-angle);
}

double AcGeVector3d::angleOnPlane(const AcGePlanarEnt& plane) const {
    return convert2d(plane).angle();
}

bool AcGeVector3d::isUnitLength(const AcGeTol& tol) const {
    return std::abs(length() - 1.0) <= tol.equalVector();
}

bool AcGeVector3d::isParallelTo(const AcGeVector3d& v, const AcGeTol& tol) const {
    AcGeError ignored{};
    return isParallelTo(v, tol, ignored);
}

bool AcGeVector3d::isCodirectionalTo(const AcGeVector3d& v, const AcGeTol& tol) const {
    AcGeError ignored{};
    return isCodirectionalTo(v, tol, ignored);
}

bool AcGeVector3d::isPerpendicularTo(const AcGeVector3d& v, const AcGeTol& tol) const {
    AcGeError ignored{};
    return isPerpendicularTo(v, tol, ignored);
}

bool AcGeVector3d::isParallelTo(const AcGeVector3d& v, const AcGeTol& tol, AcGeError& error) const {
    error = isZeroLength(tol) ? AcGe::k0This : v.isZeroLength(tol) ? AcGe::k0Arg1 : AcGe::kOk;
    return error == AcGe::kOk &&
           normal(tol).crossProduct(v.normal(tol)).lengthSqrd() <= tol.equalVector() * tol.equalVector();
}

bool AcGeVector3d::isCodirectionalTo(const AcGeVector3d& v, const AcGeTol& tol, AcGeError& error) const {
    return isParallelTo(v, tol, error) && dotProduct(v) > 0.0;
}

bool AcGeVector3d::isPerpendicularTo(const AcGeVector3d& v, const AcGeTol& tol, AcGeError& error) const {
    error = isZeroLength(tol) ? AcGe::k0This : v.isZeroLength(tol) ? AcGe::k0Arg1 : AcGe::kOk;
    return error == AcGe::kOk && std::abs(normal(tol).dotProduct(v.normal(tol))) <= tol.equalVector();
}

AcGeVector3d& AcGeVector3d::rotateBy(double angle, const AcGeVector3d& axis) {
    return transformBy(AcGeMatrix3d::rotation(angle, axis));
}

AcGeVector3d& AcGeVector3d::mirror(const AcGeVector3d& normalToPlane) {
    const AcGeVector3d unit = normalToPlane.normal();
    return *this -= unit * (2.0 * dotProduct(unit));
}

AcGeVector3d& AcGeVector3d::transformBy(const AcGeMatrix3d& matrix) {
    return *this = matrix * *this;
}

AcGeVector3d& AcGeVector3d::setToProduct(const AcGeMatrix3d& matrix, const AcGeVector3d& v) {
    return *this = matrix * v;
}

AcGeVector2d AcGeVector3d::convert2d(const AcGePlanarEnt& plane) const {
    AcGePoint3d origin;
    AcGeVector3d uAxis;
    AcGeVector3d vAxis;
    plane.get(origin, uAxis, vAxis);
    const AcGeMatrix3d toPlane =
        AcGeMatrix3d().setCoordSystem(AcGePoint3d::kOrigin, uAxis, vAxis, plane.normal()).inverse();
    const AcGeVector3d local = toPlane * *this;
    return {local.x, local.y};
}

AcGeVector3d AcGeVector3d::project(const AcGeVector3d& planeNormal, const AcGeVector3d& direction) const {
    const double slope = direction.dotProduct(planeNormal);
    return slope == 0.0 ? *this : *this - direction * (dotProduct(planeNormal) / slope);
}

AcGeVector3d AcGeVector3d::orthoProject(const AcGeVector3d& planeNormal) const {
    return project(planeNormal, planeNormal);
}
