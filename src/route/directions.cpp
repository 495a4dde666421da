#include <zucomn/route.h>
#include <zucomn/strings.h>

#include <acutads.h>

#include <numbers>

namespace {

constexpr double radians(double degrees) {
    return degrees / 180.0 * std::numbers::pi;
}

int turned(const AcGePoint3d& centre, double distance, double angle, AcGePoint3d& out) {
    const AcGePoint3d pivot = centre;
    out = pivot + AcGeVector3d(distance, 0.0, 0.0);
    out.rotateBy(angle, AcGeVector3d::kZAxis, pivot);
    return 0;
}

/// Rotates by degrees; an angle of 0 returns the point unchanged to the last bit.
int turnedByDegrees(const AcGePoint3d& centre, double distance, double degrees, AcGePoint3d& out) {
    if (degrees != 0.0 && distance != 0.0)
        return turned(centre, distance, radians(degrees), out);
    out = centre + AcGeVector3d(distance, 0.0, 0.0);
    return 0;
}

} // namespace

double RootComn_Get2PointRadian(const AcGePoint3d& a, const AcGePoint3d& b) {
    const ads_point from{b.x, b.y, b.z};
    const ads_point to{a.x, a.y, a.z};
    return acutAngle(from, to);
}

double RootComn_Get2PointAngle(const AcGePoint3d& a, const AcGePoint3d& b) {
    const double angle = RootComn_Get2PointRadian(a, b) / std::numbers::pi * 180.0;
    return angle >= 360.0 ? angle - 360.0 : angle;
}

int RootComn_PointRotation(double x, double y, double distance, double angle, double* outX, double* outY) {
    AcGePoint3d out;
    turned({x, y, 0.0}, distance, radians(ZUComn_AngleAptitude(angle)), out);
    if (outX != nullptr)
        *outX = out.x;
    if (outY != nullptr)
        *outY = out.y;
    return 0;
}

int RootComn_PointRotation2(const AcGePoint3d& centre, double distance, double angle, AcGePoint3d& out) {
    return turnedByDegrees(centre, distance, angle == 0.0 ? 0.0 : ZUComn_AngleAptitude(angle), out);
}

int RootComn_PointRotation3(const AcGePoint3d& centre, double distance, double angle, AcGePoint3d& out) {
    return turned(centre, distance, angle, out);
}

int RootComn_PointRotation4(const AcGePoint3d& centre, double distance, double angle, AcGePoint3d& out) {
    return turnedByDegrees(centre, distance, angle, out);
}
