#include "gemat2d.h"

#include "geline2d.h"

#include <algorithm>
#include <cmath>

const AcGeMatrix2d AcGeMatrix2d::kIdentity;

namespace {

AcGeMatrix2d about(const AcGePoint2d& centre, const AcGeMatrix2d& transform) {
    const AcGeVector2d offset = centre.asVector();
    return AcGeMatrix2d::translation(offset) * transform * AcGeMatrix2d::translation(-offset);
}

} // namespace

AcGeMatrix2d AcGeMatrix2d::operator*(const AcGeMatrix2d& right) const {
    AcGeMatrix2d product;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            double sum = 0.0;
            for (int k = 0; k < 3; ++k)
                sum += entry[row][k] * right.entry[k][column];
            product.entry[row][column] = sum;
        }
    }
    return product;
}

bool AcGeMatrix2d::isEqualTo(const AcGeMatrix2d& other, const AcGeTol& tol) const {
    return std::equal(&entry[0][0], &entry[0][0] + 9, &other.entry[0][0],
                      [&tol](double a, double b) { return std::abs(a - b) <= tol.equalVector(); });
}

double AcGeMatrix2d::det() const {
    return entry[0][0] * entry[1][1] - entry[0][1] * entry[1][0];
}

bool AcGeMatrix2d::isSingular(const AcGeTol& tol) const {
    const double size = std::hypot(entry[0][0], entry[1][0]) * std::hypot(entry[0][1], entry[1][1]);
    return !(std::abs(det()) > tol.equalVector() * size);
}

AcGeMatrix2d AcGeMatrix2d::inverse() const {
    const double size = det();
    if (size == 0.0 || !std::isfinite(size))
        return kIdentity;
    AcGeMatrix2d result;
    result.entry[0][0] = entry[1][1] / size;
    result.entry[0][1] = -entry[0][1] / size;
    result.entry[1][0] = -entry[1][0] / size;
    result.entry[1][1] = entry[0][0] / size;
    return result.setTranslation(-(result * translation()));
}

AcGeMatrix2d AcGeMatrix2d::transpose() const {
    AcGeMatrix2d result;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            result.entry[row][column] = entry[column][row];
    return result;
}

AcGeMatrix2d& AcGeMatrix2d::setTranslation(const AcGeVector2d& by) {
    entry[0][2] = by.x;
    entry[1][2] = by.y;
    return *this;
}

AcGeMatrix2d AcGeMatrix2d::rotation(double angle, const AcGePoint2d& centre) {
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return about(centre, AcGeMatrix2d().setCoordSystem(AcGePoint2d::kOrigin, {c, s}, {-s, c}));
}

AcGeMatrix2d AcGeMatrix2d::scaling(double factor, const AcGePoint2d& centre) {
    return about(centre, AcGeMatrix2d().setCoordSystem(AcGePoint2d::kOrigin, {factor, 0}, {0, factor}));
}

AcGeMatrix2d AcGeMatrix2d::mirroring(const AcGeLine2d& line) {
    const AcGeVector2d along = line.direction();
    AcGeVector2d x = AcGeVector2d::kXAxis;
    AcGeVector2d y = AcGeVector2d::kYAxis;
    return about(line.pointOnLine(),
                 AcGeMatrix2d().setCoordSystem(AcGePoint2d::kOrigin, x.mirror(along), y.mirror(along)));
}

AcGeMatrix2d AcGeMatrix2d::alignCoordSys(const AcGePoint2d& fromOrigin, const AcGeVector2d& fromX,
                                         const AcGeVector2d& fromY, const AcGePoint2d& toOrigin,
                                         const AcGeVector2d& toX, const AcGeVector2d& toY) {
    return AcGeMatrix2d().setCoordSystem(toOrigin, toX, toY) *
           AcGeMatrix2d().setCoordSystem(fromOrigin, fromX, fromY).inverse();
}

AcGeMatrix2d& AcGeMatrix2d::setCoordSystem(const AcGePoint2d& origin, const AcGeVector2d& xAxis,
                                           const AcGeVector2d& yAxis) {
    setToIdentity();
    entry[0][0] = xAxis.x;
    entry[1][0] = xAxis.y;
    entry[0][1] = yAxis.x;
    entry[1][1] = yAxis.y;
    return setTranslation(origin.asVector());
}

void AcGeMatrix2d::getCoordSystem(AcGePoint2d& origin, AcGeVector2d& xAxis, AcGeVector2d& yAxis) const {
    xAxis.set(entry[0][0], entry[1][0]);
    yAxis.set(entry[0][1], entry[1][1]);
    origin.set(entry[0][2], entry[1][2]);
}

AcGePoint2d operator*(const AcGeMatrix2d& m, const AcGePoint2d& p) {
    return AcGePoint2d() + m * p.asVector() + m.translation();
}

AcGeVector2d operator*(const AcGeMatrix2d& m, const AcGeVector2d& v) {
    return {m.entry[0][0] * v.x + m.entry[0][1] * v.y, m.entry[1][0] * v.x + m.entry[1][1] * v.y};
}
