#include "gearc3d.h"

#include "geline3d.h"
#include "geplane.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;

/// Returns the centre of the circle through three points; false when they are on a line.
bool findCentre(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& c, AcGePoint3d& centre) {
    const AcGeVector3d ab = b - a;
    const AcGeVector3d ac = c - a;
    const AcGeVector3d normal = ab.crossProduct(ac);
    if (!ab.normal().crossProduct(ac.normal()).isZeroLength() && normal.lengthSqrd() > 0.0) {
        const AcGeVector3d toCentre =
            (normal.crossProduct(ab) * ac.lengthSqrd() + ac.crossProduct(normal) * ab.lengthSqrd()) /
            (2.0 * normal.lengthSqrd());
        centre = a + toCentre;
        return true;
    }
    return false;
}

/// Keeps the points that are on both curves.
class Crossings {
public:
    Crossings(const AcGeCurve3d& a, const AcGeCurve3d& b, const AcGeTol& tol) : a_(a), b_(b), tol_(tol) {}

    void consider(const AcGePoint3d& point) {
        if (!a_.isOn(point, tol_) || !b_.isOn(point, tol_))
            return;
        if (count_ == 0 || (count_ == 1 && !point.isEqualTo(points_[0], tol_)))
            points_[count_++] = point;
    }
    bool store(int& count, AcGePoint3d& first, AcGePoint3d& second) const {
        count = count_;
        if (count_ > 0)
            first = points_[0];
        if (count_ > 1)
            second = points_[1];
        return count_ > 0;
    }

private:
    const AcGeCurve3d& a_;
    const AcGeCurve3d& b_;
    AcGeTol tol_;
    AcGePoint3d points_[2];
    int count_ = 0;
};

/// Returns half the chord of a circle at a distance from its centre; negative when that is outside.
double halfChord(double radius, double distance, const AcGeTol& tol) {
    if (std::abs(distance - radius) <= tol.equalPoint())
        return 0.0;
    return distance > radius ? -1.0 : std::sqrt((radius - distance) * (radius + distance));
}

} // namespace

AcGeCircArc3d::AcGeCircArc3d(const AcGePoint3d& centre, const AcGeVector3d& normal, double radius)
    : AcGeCircArc3d(centre, normal, normal.perpVector(), radius, 0.0, kTurn) {}

AcGeCircArc3d::AcGeCircArc3d(const AcGePoint3d& centre, const AcGeVector3d& normal,
                             const AcGeVector3d& reference, double radius, double startAngle, double endAngle)
    : centre_(centre), normal_(normal.normal()), reference_(reference.orthoProject(normal_).normal()),
      radius_(radius) {
    setAngles(startAngle, endAngle);
}

AcGeCircArc3d::AcGeCircArc3d(const AcGePoint3d& start, const AcGePoint3d& through, const AcGePoint3d& end)
    : AcGeCircArc3d() {
    set(start, through, end);
}

AcGeCircArc3d& AcGeCircArc3d::set(const AcGePoint3d& start, const AcGePoint3d& through,
                                  const AcGePoint3d& end) {
    AcGeError ignored{};
    return set(start, through, end, ignored);
}

AcGeCircArc3d& AcGeCircArc3d::set(const AcGePoint3d& start, const AcGePoint3d& through,
                                  const AcGePoint3d& end, AcGeError& error) {
    AcGePoint3d centre;
    error = AcGe::kLinearlyDependentArg1Arg2Arg3;
    if (!findCentre(start, through, end, centre))
        return *this;
    error = AcGe::kOk;
    const AcGeVector3d normal = (through - start).crossProduct(end - start);
    const AcGeVector3d reference = start - centre;
    const double angle = reference.angleTo(end - centre, normal);
    // The normal may be too short for the tolerance, so scale by its length first.
    return *this = AcGeCircArc3d(centre, normal / normal.length(), reference / reference.length(),
                                 reference.length(), 0.0, angle);
}

AcGeCircArc3d& AcGeCircArc3d::setAxes(const AcGeVector3d& normal, const AcGeVector3d& reference) {
    normal_ = normal.normal();
    reference_ = reference.orthoProject(normal_).normal();
    return *this;
}

AcGeCircArc3d& AcGeCircArc3d::setAngles(double startAngle, double endAngle) {
    if (endAngle < startAngle)
        endAngle += kTurn * std::ceil((startAngle - endAngle) / kTurn);
    interval_.set(startAngle, endAngle);
    return *this;
}

void AcGeCircArc3d::getPlane(AcGePlane& plane) const {
    plane.set(centre_, reference_, normal_.crossProduct(reference_));
}

bool AcGeCircArc3d::isInside(const AcGePoint3d& point, const AcGeTol& tol) const {
    return AcGePlane(centre_, normal_).isOn(point, tol) &&
           point.distanceTo(centre_) <= radius_ + tol.equalPoint();
}

AcGePoint3d AcGeCircArc3d::evalPoint(double parameter) const {
    return centre_ + reference_ * (radius_ * std::cos(parameter)) +
           normal_.crossProduct(reference_) * (radius_ * std::sin(parameter));
}

double AcGeCircArc3d::paramOf(const AcGePoint3d& point, const AcGeTol& /*tol*/) const {
    const AcGeVector3d out = (point - centre_).orthoProject(normal_);
    const double angle =
        std::atan2(out.dotProduct(normal_.crossProduct(reference_)), out.dotProduct(reference_));
    const double afterStart = std::fmod(std::fmod(angle - startAng(), kTurn) + kTurn, kTurn);
    const double extent = interval_.length();
    if (afterStart <= extent)
        return startAng() + afterStart;
    return afterStart - extent < kTurn - afterStart ? endAng() : startAng();
}

double AcGeCircArc3d::length(double fromParameter, double toParameter, double /*tolerance*/) const {
    return std::abs(toParameter - fromParameter) * radius_;
}

bool AcGeCircArc3d::intersectWith(const AcGeLinearEnt3d& line, int& count, AcGePoint3d& first,
                                  AcGePoint3d& second, const AcGeTol& tol) const {
    Crossings crossings(*this, line, tol);
    const AcGeVector3d along = line.direction();
    if (!along.isPerpendicularTo(normal_, tol)) {
        AcGePoint3d pierced;
        if (line.intersectWith(AcGePlane(centre_, normal_), pierced, tol))
            crossings.consider(pierced);
        return crossings.store(count, first, second);
    }
    const AcGePoint3d nearest = line.pointOnLine() + along * (centre_ - line.pointOnLine()).dotProduct(along);
    const double half = halfChord(radius_, nearest.distanceTo(centre_), tol);
    if (half >= 0.0) {
        crossings.consider(nearest - along * half);
        crossings.consider(nearest + along * half);
    }
    return crossings.store(count, first, second);
}

bool AcGeCircArc3d::intersectWith(const AcGeCircArc3d& other, int& count, AcGePoint3d& first,
                                  AcGePoint3d& second, const AcGeTol& tol) const {
    Crossings crossings(*this, other, tol);
    const AcGePlane plane(centre_, normal_);
    const AcGePlane otherPlane(other.centre_, other.normal_);
    AcGeLine3d common;
    if (plane.intersectWith(otherPlane, common, tol)) {
        AcGePoint3d points[2];
        if (intersectWith(common, count, points[0], points[1], tol))
            std::for_each_n(points, count, [&](const AcGePoint3d& p) { crossings.consider(p); });
        return crossings.store(count, first, second);
    }
    const AcGeVector3d between = other.centre_ - centre_;
    const double distance = between.length();
    if (distance > tol.equalPoint()) {
        const double sumOfSquares =
            distance * distance + (radius_ - other.radius_) * (radius_ + other.radius_);
        const double toChord = sumOfSquares / (2.0 * distance);
        const double half = halfChord(radius_, std::abs(toChord), tol);
        const AcGeVector3d towards = between / distance;
        const AcGeVector3d across = normal_.crossProduct(towards) * half;
        if (half >= 0.0) {
            crossings.consider(centre_ + towards * toChord + across);
            crossings.consider(centre_ + towards * toChord - across);
        }
    }
    return crossings.store(count, first, second);
}

bool AcGeCircArc3d::intersectWith(const AcGePlanarEnt& plane, int& count, AcGePoint3d& first,
                                  AcGePoint3d& second, const AcGeTol& tol) const {
    AcGeLine3d common;
    const bool areParallel =
        !AcGePlane(centre_, normal_)
             .intersectWith(AcGePlane(plane.pointOnPlane(), plane.normal()), common, tol);
    count = 0;
    return !areParallel && intersectWith(common, count, first, second, tol);
}

bool AcGeCircArc3d::tangent(const AcGePoint3d& point, AcGeLine3d& line, const AcGeTol& tol) const {
    if (!isOn(point, tol))
        return false;
    line.set(point, normal_.crossProduct(point - centre_));
    return true;
}

bool AcGeCircArc3d::isEqualTo(const AcGeCircArc3d& other, const AcGeTol& tol) const {
    return centre_.isEqualTo(other.centre_, tol) && normal_.isEqualTo(other.normal_, tol) &&
           std::abs(radius_ - other.radius_) <= tol.equalPoint() &&
           startPoint().isEqualTo(other.startPoint(), tol) && endPoint().isEqualTo(other.endPoint(), tol) &&
           std::abs(interval_.length() - other.interval_.length()) <= tol.equalVector();
}

void AcGeCircArc3d::apply(const AcGeMatrix3d& matrix) {
    const AcGeVector3d across = matrix * normal_.crossProduct(reference_);
    const AcGeVector3d along = matrix * reference_;
    centre_.transformBy(matrix);
    radius_ *= along.length();
    setAxes(along.crossProduct(across), along);
}
