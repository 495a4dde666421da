#include "gemat3d.h"

#include <algorithm>
#include <cmath>

namespace {

AcGeMatrix3d about(const AcGePoint3d& centre, const AcGeMatrix3d& transform) {
    const AcGeVector3d offset = centre.asVector();
    return AcGeMatrix3d::translation(offset) * transform * AcGeMatrix3d::translation(-offset);
}

} // namespace

const AcGeVector3d AcGeVector3d::kIdentity(0, 0, 0);
const AcGeVector3d AcGeVector3d::kXAxis(1, 0, 0);
const AcGeVector3d AcGeVector3d::kYAxis(0, 1, 0);
const AcGeVector3d AcGeVector3d::kZAxis(0, 0, 1);
const AcGePoint3d AcGePoint3d::kOrigin(0, 0, 0);
const AcGeMatrix3d AcGeMatrix3d::kIdentity;

double AcGeVector3d::length() const {
    return std::sqrt(lengthSqrd());
}

AcGeVector3d AcGeVector3d::normal() const {
    const double size = length();
    return size > 0.0 ? *this / size : *this;
}

double AcGeVector3d::angleTo(const AcGeVector3d& v) const {
    return std::atan2(crossProduct(v).length(), dotProduct(v));
}

AcGeVector3d& AcGeVector3d::rotateBy(double angle, const AcGeVector3d& axis) {
    return transformBy(AcGeMatrix3d::rotation(angle, axis));
}

AcGeVector3d& AcGeVector3d::transformBy(const AcGeMatrix3d& matrix) {
    return *this = matrix * *this;
}

AcGePoint3d& AcGePoint3d::rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& centre) {
    return transformBy(AcGeMatrix3d::rotation(angle, axis, centre));
}

AcGePoint3d& AcGePoint3d::transformBy(const AcGeMatrix3d& matrix) {
    return *this = matrix * *this;
}

AcGePoint3d& AcGePoint3d::scaleBy(double factor, const AcGePoint3d& centre) {
    return *this = centre + (*this - centre) * factor;
}

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

bool AcGeMatrix3d::operator==(const AcGeMatrix3d& other) const {
    return std::equal(&entry[0][0], &entry[0][0] + 16, &other.entry[0][0]);
}

double AcGeMatrix3d::det() const {
    AcGePoint3d origin;
    AcGeVector3d x;
    AcGeVector3d y;
    AcGeVector3d z;
    getCoordSystem(origin, x, y, z);
    return x.crossProduct(y).dotProduct(z);
}

AcGeMatrix3d AcGeMatrix3d::inverse() const {
    const double size = det();
    if (size == 0.0 || !std::isfinite(size))
        return kIdentity;
    AcGePoint3d origin;
    AcGeVector3d x;
    AcGeVector3d y;
    AcGeVector3d z;
    getCoordSystem(origin, x, y, z);
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

AcGeMatrix3d AcGeMatrix3d::translation(const AcGeVector3d& by) {
    AcGeMatrix3d result;
    result.entry[0][3] = by.x;
    result.entry[1][3] = by.y;
    result.entry[2][3] = by.z;
    return result;
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
    return scaling(AcGeScale3d(factor), centre);
}

AcGeMatrix3d AcGeMatrix3d::scaling(const AcGeScale3d& factors, const AcGePoint3d& centre) {
    AcGeMatrix3d scale;
    scale.entry[0][0] = factors.sx;
    scale.entry[1][1] = factors.sy;
    scale.entry[2][2] = factors.sz;
    return about(centre, scale);
}

AcGeMatrix3d AcGeMatrix3d::mirroring(const AcGePoint3d& point, const AcGeVector3d& normal) {
    const AcGeVector3d n = normal.normal();
    AcGeMatrix3d mirror;
    mirror.setCoordSystem(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis - n * (2 * n.x),
                          AcGeVector3d::kYAxis - n * (2 * n.y), AcGeVector3d::kZAxis - n * (2 * n.z));
    return about(point, mirror);
}

AcGeMatrix3d AcGeMatrix3d::planeToWorld(const AcGeVector3d& normal) {
    constexpr double kNearlyVertical = 1.0 / 64.0;
    const AcGeVector3d z = normal.normal();
    const bool vertical = std::abs(z.x) < kNearlyVertical && std::abs(z.y) < kNearlyVertical;
    const AcGeVector3d x = (vertical ? AcGeVector3d::kYAxis : AcGeVector3d::kZAxis).crossProduct(z).normal();
    return AcGeMatrix3d().setCoordSystem(AcGePoint3d::kOrigin, x, z.crossProduct(x).normal(), z);
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
