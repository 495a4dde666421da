#include "gemat3d.h"

#include "geline3d.h"
#include "geplane.h"

#include <algorithm>
#include <cmath>
#include <numbers>

const AcGeMatrix3d AcGeMatrix3d::kIdentity;

namespace {

AcGeMatrix3d about(const AcGePoint3d& centre, const AcGeMatrix3d& transform) {
    const AcGeVector3d offset = centre.asVector();
    return AcGeMatrix3d::translation(offset) * transform * AcGeMatrix3d::translation(-offset);
}

struct Axes {
    explicit Axes(const AcGeMatrix3d& matrix) { matrix.getCoordSystem(origin, x, y, z); }

    AcGePoint3d origin;
    AcGeVector3d x;
    AcGeVector3d y;
    AcGeVector3d z;
};

} // namespace

AcGeMatrix3d AcGeMatrix3d::operator*(const AcGeMatrix3d& right) const {
    AcGeMatrix3d product;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            double sum = 0.0;
            for (int k = 0; k < 4; ++k)
                sum += entry[row][k] * right.entry[k][column];
            product.entry[row][column] = sum;
        }
    }
    return product;
}

bool AcGeMatrix3d::isEqualTo(const AcGeMatrix3d& other, const AcGeTol& tol) const {
    return std::equal(&entry[0][0], &entry[0][0] + 16, &other.entry[0][0],
                      [&tol](double a, double b) { return std::abs(a - b) <= tol.equalVector(); });
}

double AcGeMatrix3d::det() const {
    const Axes axes(*this);
    return axes.x.crossProduct(axes.y).dotProduct(axes.z);
}

bool AcGeMatrix3d::isSingular(const AcGeTol& tol) const {
    const Axes axes(*this);
    const double size = axes.x.length() * axes.y.length() * axes.z.length();
    return !(std::abs(det()) > tol.equalVector() * size);
}

AcGeMatrix3d AcGeMatrix3d::inverse() const {
    const double size = det();
    if (size == 0.0 || !std::isfinite(size))
        return kIdentity;
    const auto& [origin, x, y, z] = Axes(*this);
    // The rows of the inverse are the cross products of the axes divided by the determinant.
    const AcGeVector3d rows[] = {y.crossProduct(z) / size, z.crossProduct(x) / size,
                                 x.crossProduct(y) / size};
    AcGeMatrix3d result;
    for (int row = 0; row < 3; ++row) {
        result.entry[row][0] = rows[row].x;
        result.entry[row][1] = rows[row].y;
        result.entry[row][2] = rows[row].z;
        result.entry[row][3] = -rows[row].dotProduct(origin.asVector());
    }
    return result;
}

bool AcGeMatrix3d::inverse(AcGeMatrix3d& inverse, double tolerance) const {
    if (isSingular(AcGeTol().setEqualVector(tolerance)))
        return false;
    inverse = this->inverse();
    return true;
}

AcGeMatrix3d AcGeMatrix3d::transpose() const {
    AcGeMatrix3d result;
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            result.entry[row][column] = entry[column][row];
    return result;
}

bool AcGeMatrix3d::isScaledOrtho(const AcGeTol& tol) const {
    const Axes axes(*this);
    return axes.x.isPerpendicularTo(axes.y, tol) && axes.y.isPerpendicularTo(axes.z, tol) &&
           axes.z.isPerpendicularTo(axes.x, tol);
}

bool AcGeMatrix3d::isUniScaledOrtho(const AcGeTol& tol) const {
    const Axes axes(*this);
    const double size = axes.x.length();
    const auto isAsLong = [&](const AcGeVector3d& axis) {
        return std::abs(axis.length() - size) <= tol.equalVector() * size;
    };
    return isScaledOrtho(tol) && isAsLong(axes.y) && isAsLong(axes.z);
}

double AcGeMatrix3d::scale() const {
    const Axes axes(*this);
    return std::max({axes.x.length(), axes.y.length(), axes.z.length()});
}

double AcGeMatrix3d::norm() const {
    const Axes axes(*this);
    double largest = 0.0;
    for (const AcGeVector3d& axis : {axes.x, axes.y, axes.z})
        largest = std::max(largest, std::abs(axis[axis.largestElement()]));
    return largest;
}

AcGeMatrix3d& AcGeMatrix3d::setTranslation(const AcGeVector3d& by) {
    entry[0][3] = by.x;
    entry[1][3] = by.y;
    entry[2][3] = by.z;
    return *this;
}

AcGeMatrix3d AcGeMatrix3d::rotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& centre) {
    const AcGeVector3d u = axis.normal();
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double t = 1.0 - c;
    AcGeMatrix3d turn;
    turn.setCoordSystem(AcGePoint3d::kOrigin,
                        {t * u.x * u.x + c, t * u.x * u.y + s * u.z, t * u.x * u.z - s * u.y},
                        {t * u.x * u.y - s * u.z, t * u.y * u.y + c, t * u.y * u.z + s * u.x},
                        {t * u.x * u.z + s * u.y, t * u.y * u.z - s * u.x, t * u.z * u.z + c});
    return about(centre, turn);
}

AcGeMatrix3d AcGeMatrix3d::scaling(double factor, const AcGePoint3d& centre) {
    return about(centre, AcGeScale3d(factor));
}

AcGeMatrix3d AcGeMatrix3d::mirroring(const AcGePlane& plane) {
    const AcGeVector3d n = plane.normal();
    AcGeMatrix3d mirror;
    mirror.setCoordSystem(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis - n * (2 * n.x),
                          AcGeVector3d::kYAxis - n * (2 * n.y), AcGeVector3d::kZAxis - n * (2 * n.z));
    return about(plane.pointOnPlane(), mirror);
}

AcGeMatrix3d AcGeMatrix3d::mirroring(const AcGeLine3d& line) {
    return rotation(std::numbers::pi, line.direction(), line.pointOnLine());
}

AcGeMatrix3d AcGeMatrix3d::projection(const AcGePlane& plane, const AcGeVector3d& direction) {
    const AcGeVector3d normal = plane.normal();
    const auto projected = [&](const AcGeVector3d& axis) { return axis.project(normal, direction); };
    AcGeMatrix3d flat;
    flat.setCoordSystem(AcGePoint3d::kOrigin, projected(AcGeVector3d::kXAxis),
                        projected(AcGeVector3d::kYAxis), projected(AcGeVector3d::kZAxis));
    return about(plane.pointOnPlane(), flat);
}

AcGeMatrix3d AcGeMatrix3d::alignCoordSys(const AcGePoint3d& fromOrigin, const AcGeVector3d& fromX,
                                         const AcGeVector3d& fromY, const AcGeVector3d& fromZ,
                                         const AcGePoint3d& toOrigin, const AcGeVector3d& toX,
                                         const AcGeVector3d& toY, const AcGeVector3d& toZ) {
    return AcGeMatrix3d().setCoordSystem(toOrigin, toX, toY, toZ) *
           AcGeMatrix3d().setCoordSystem(fromOrigin, fromX, fromY, fromZ).inverse();
}

AcGeMatrix3d AcGeMatrix3d::planeToWorld(const AcGeVector3d& normal) {
    const AcGeVector3d z = normal.normal();
    const AcGeVector3d x = z.perpVector();
    return AcGeMatrix3d().setCoordSystem(AcGePoint3d::kOrigin, x, z.crossProduct(x).normal(), z);
}

AcGeMatrix3d AcGeMatrix3d::planeToWorld(const AcGePlane& plane) {
    AcGePoint3d origin;
    AcGeVector3d uAxis;
    AcGeVector3d vAxis;
    plane.get(origin, uAxis, vAxis);
    return AcGeMatrix3d().setCoordSystem(origin, uAxis, vAxis, plane.normal());
}

AcGeMatrix3d& AcGeMatrix3d::setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                           const AcGeVector3d& yAxis, const AcGeVector3d& zAxis) {
    const double rows[3][4] = {{xAxis.x, yAxis.x, zAxis.x, origin.x},
                               {xAxis.y, yAxis.y, zAxis.y, origin.y},
                               {xAxis.z, yAxis.z, zAxis.z, origin.z}};
    setToIdentity();
    std::copy(&rows[0][0], &rows[0][0] + 12, &entry[0][0]);
    return *this;
}

void AcGeMatrix3d::getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                                  AcGeVector3d& zAxis) const {
    xAxis.set(entry[0][0], entry[1][0], entry[2][0]);
    yAxis.set(entry[0][1], entry[1][1], entry[2][1]);
    zAxis.set(entry[0][2], entry[1][2], entry[2][2]);
    origin.set(entry[0][3], entry[1][3], entry[2][3]);
}

void AcGeScale3d::getMatrix(AcGeMatrix3d& matrix) const {
    matrix.setCoordSystem(AcGePoint3d::kOrigin, {sx, 0, 0}, {0, sy, 0}, {0, 0, sz});
}

AcGeScale3d::operator AcGeMatrix3d() const {
    AcGeMatrix3d matrix;
    getMatrix(matrix);
    return matrix;
}

AcGePoint3d operator*(const AcGeMatrix3d& m, const AcGePoint3d& p) {
    const auto row = [&](int i) {
        return m.entry[i][0] * p.x + m.entry[i][1] * p.y + m.entry[i][2] * p.z + m.entry[i][3];
    };
    return {row(0), row(1), row(2)};
}

AcGeVector3d operator*(const AcGeMatrix3d& m, const AcGeVector3d& v) {
    const auto row = [&](int i) { return m.entry[i][0] * v.x + m.entry[i][1] * v.y + m.entry[i][2] * v.z; };
    return {row(0), row(1), row(2)};
}
