#include "network.h"

namespace zu {

namespace {

using zucomn::RouteFault;

std::wstring pointText(const NetworkPoint& point) {
    return L"connection point " + std::to_wstring(point.number) + L" at " + placeText(point.position);
}

void reportCrowd(const Network& network, const NetworkPoint& point, RouteAudit& audit) {
    std::vector<AcDbObjectId> joined = network.joinedTo(point);
    audit.add({network.elementOf(point), RouteFault::crowdedJoint,
               pointText(point) + L" joins several elements: " + handleText(joined[0]) + L", " +
                   handleText(joined[1]),
               false, std::move(joined), point.position});
}

void reportGap(const Network& network, std::size_t i, RouteAudit& audit) {
    const NetworkPoint& point = network.points()[i];
    const NetworkPoint& other = network.points()[point.gap->point];
    // Two points that are each other's nearest are one gap.
    if (other.gap && other.gap->point == i && point.gap->point < i)
        return;
    const AcDbObjectId element = network.elementOf(other);
    audit.add({network.elementOf(point), RouteFault::gap,
               pointText(point) + L" joins nothing: " + numberText(point.gap->distance) + L" from " +
                   handleText(element) + L"'s point " + std::to_wstring(other.number),
               false, std::vector{element}, point.position});
}

} // namespace

void auditConnectionPoints(const Network& network, RouteAudit& audit) {
    for (std::size_t i = 0; i < network.points().size(); ++i) {
        const NetworkPoint& point = network.points()[i];
        if (point.joinedCount > 1)
            reportCrowd(network, point, audit);
        else if (point.gap)
            reportGap(network, i, audit);
        else if (point.joinedCount == 0)
            audit.add({network.elementOf(point),
                       RouteFault::openEnd,
                       pointText(point) + L" joins nothing",
                       false,
                       {},
                       point.position});
    }
}

} // namespace zu
