#include "dbelipse.h"

#include "angles.h"
#include "curve_piece.h"
#include "drawing/tag_view.h"

#include <cmath>

ACRX_CONS_DEFINE_MEMBERS(AcDbEllipse, AcDbCurve)

using zuhost::CurvePiece;
using zuhost::kTurn;

namespace {

constexpr std::string_view kMarker = "AcDbEllipse";
constexpr double kLeastRatio = 1e-6;

/// Returns the angle in the same turn as `reference`.
double sameTurn(double angle, double reference) {
    return angle + kTurn * std::round((reference - angle) / kTurn);
}

/// Returns the angle from start to end, more than 0 and at most a turn, whatever turns they are in.
double sweepOf(double start, double end) {
    constexpr double kRounding = 1e-9;
    const double sweep = end - start;
    if (sweep > 0.0 && sweep <= kTurn + kRounding)
        return sweep;
    const double rest = std::fmod(sweep, kTurn);
    return rest > kRounding ? rest : rest + kTurn;
}

} // namespace

zuhost::TagList AcDbEllipse::newRecords() const {
    zuhost::TagList records = recordsOf("ELLIPSE", {"AcDbEntity", kMarker});
    records.add(10, "0.0");
    records.add(20, "0.0");
    records.add(30, "0.0");
    records.add(11, "1.0");
    records.add(21, "0.0");
    records.add(31, "0.0");
    records.add(210, "0.0");
    records.add(220, "0.0");
    records.add(230, "1.0");
    records.add(40, "1.0");
    records.add(41, "0.0");
    records.add(42, "6.283185307179586");
    return records;
}

AcDbEllipse::AcDbEllipse(const AcGePoint3d& centre, const AcGeVector3d& normal, const AcGeVector3d& majorAxis,
                         double radiusRatio, double startAngle, double endAngle)
    : AcDbEllipse() {
    set(centre, normal, majorAxis, radiusRatio, startAngle, endAngle);
}

Acad::ErrorStatus AcDbEllipse::set(const AcGePoint3d& centre, const AcGeVector3d& normal,
                                   const AcGeVector3d& majorAxis, double radiusRatio, double startAngle,
                                   double endAngle) {
    const AcGeTol tolerance = AcGeTol().setEqualVector(1e-8);
    if (!normal.isPerpendicularTo(majorAxis, tolerance) ||
        !(radiusRatio >= kLeastRatio && radiusRatio <= 1.0) || !std::isfinite(startAngle) ||
        !std::isfinite(endAngle))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = setCenter(centre);
    if (status != Acad::eOk)
        return status;
    setPointTag(kMarker, 11, AcGePoint3d::kOrigin + majorAxis);
    setNormalTag(kMarker, normal);
    setRealTag(kMarker, 40, radiusRatio);
    setStartAngle(startAngle);
    return setEndAngle(endAngle);
}

AcGePoint3d AcDbEllipse::center() const {
    return pointTag(kMarker, 10);
}
Acad::ErrorStatus AcDbEllipse::setCenter(const AcGePoint3d& centre) {
    return setPointTag(kMarker, 10, centre);
}
AcGeVector3d AcDbEllipse::majorAxis() const {
    return pointTag(kMarker, 11, {1, 0, 0}).asVector();
}
AcGeVector3d AcDbEllipse::minorAxis() const {
    return normal().crossProduct(majorAxis()) * radiusRatio();
}
AcGeVector3d AcDbEllipse::normal() const {
    return normalTag(kMarker);
}
double AcDbEllipse::radiusRatio() const {
    return realTag(kMarker, 40, 1.0);
}

Acad::ErrorStatus AcDbEllipse::setRadiusRatio(double ratio) {
    const bool isValid = ratio >= kLeastRatio && ratio <= 1.0;
    return isValid ? setRealTag(kMarker, 40, ratio) : Acad::eInvalidInput;
}

double AcDbEllipse::paramAtAngle(double angle) const {
    return sameTurn(std::atan2(std::sin(angle) / radiusRatio(), std::cos(angle)), angle);
}
double AcDbEllipse::angleAtParam(double param) const {
    return sameTurn(std::atan2(std::sin(param) * radiusRatio(), std::cos(param)), param);
}
double AcDbEllipse::startAngle() const {
    return angleAtParam(startParam());
}
Acad::ErrorStatus AcDbEllipse::setStartAngle(double angle) {
    return setStartParam(paramAtAngle(angle));
}
double AcDbEllipse::endAngle() const {
    return angleAtParam(endParam());
}
Acad::ErrorStatus AcDbEllipse::setEndAngle(double angle) {
    return setEndParam(paramAtAngle(angle));
}
double AcDbEllipse::startParam() const {
    return realTag(kMarker, 41, 0.0);
}
Acad::ErrorStatus AcDbEllipse::setStartParam(double param) {
    return setRealTag(kMarker, 41, param);
}
double AcDbEllipse::endParam() const {
    return realTag(kMarker, 42, kTurn);
}
Acad::ErrorStatus AcDbEllipse::setEndParam(double param) {
    return setRealTag(kMarker, 42, param);
}

Acad::ErrorStatus AcDbEllipse::subTransformBy(const AcGeMatrix3d& matrix) {
    return assign(pieces().front().transformed(matrix));
}

Acad::ErrorStatus AcDbEllipse::assign(const CurvePiece& piece) {
    // Any two conjugate radii give the axes: the radii at the angle where the distance is largest or least.
    const AcGeVector3d& a = piece.along;
    const AcGeVector3d& b = piece.across;
    double shift = std::atan2(2.0 * a.dotProduct(b), a.lengthSqrd() - b.lengthSqrd()) / 2.0;
    AcGeVector3d major = a * std::cos(shift) + b * std::sin(shift);
    AcGeVector3d minor = b * std::cos(shift) - a * std::sin(shift);
    if (piece.isCircular()) {
        shift = 0.0;
        major = a;
        minor = b;
    } else if (major.lengthSqrd() < minor.lengthSqrd()) {
        shift += std::numbers::pi / 2.0;
        major = minor;
        minor = a * std::cos(shift + std::numbers::pi / 2.0) + b * std::sin(shift + std::numbers::pi / 2.0);
    }
    const double ratio = std::min(1.0, minor.length() / major.length());
    if (!(ratio >= kLeastRatio))
        return Acad::eCannotScaleNonUniformly;
    const Acad::ErrorStatus status = setCenter(piece.centre);
    if (status != Acad::eOk)
        return status;
    setPointTag(kMarker, 11, AcGePoint3d::kOrigin + major);
    setNormalTag(kMarker, major.crossProduct(minor) / (major.length() * minor.length()));
    setRealTag(kMarker, 40, ratio);
    const double start = std::fmod(piece.start - shift + 2.0 * kTurn, kTurn);
    setStartParam(start);
    return setEndParam(start + piece.end - piece.start);
}

std::vector<CurvePiece> AcDbEllipse::pieces() const {
    const double start = startParam();
    const double end = start + sweepOf(start, endParam());
    return {CurvePiece::arc(center(), majorAxis(), minorAxis(), start, end, start, end)};
}
