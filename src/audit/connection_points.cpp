#include "network.h"
#include "problem_text.h"

namespace zu {

namespace {

using zucomn::RouteFault;

ProblemText startOf(const Network& network, const NetworkPoint& point) {
    ProblemText text;
    text << L"connection point " << static_cast<int>(point.number) << L" at " << network.positionOf(point);
    return text;
}

void reportCrowd(const Network& network, const NetworkPoint& point, RouteAudit& audit) {
    std::vector<AcDbObjectId> joined = network.joinedTo(point);
    ProblemText text = startOf(network, point);
    text << L" joins several elements: " << joined[0] << L", " << joined[1];
    audit.add({network.elementOf(point), RouteFault::crowdedJoint, text.take(), false, std::move(joined),
               network.positionOf(point)});
}

void reportGap(const Network& network, std::size_t i, RouteAudit& audit) {
    const NetworkPoint& point = network.points()[i];
    const NetworkPoint& other = network.points()[point.gap->point];
    // Two points that are each other's nearest are one gap.
    if (other.gap && other.gap->point == i && point.gap->point < i)
        return;
    const AcDbObjectId element = network.elementOf(other);
    ProblemText text = startOf(network, point);
    text << L" joins nothing: " << Rounded{point.gap->distance} << L" from " << element << L"'s point "
         << static_cast<int>(other.number);
    audit.add({network.elementOf(point), RouteFault::gap, text.take(), false, std::vector{element},
               network.positionOf(point)});
}

void reportOpenEnd(const Network& network, const NetworkPoint& point, RouteAudit& audit) {
    ProblemText text = startOf(network, point);
    text << L" joins nothing";
    audit.add(
        {network.elementOf(point), RouteFault::openEnd, text.take(), false, {}, network.positionOf(point)});
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
            reportOpenEnd(network, point, audit);
    }
}

} // namespace zu
