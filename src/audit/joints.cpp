#include "network.h"
#include "problem_text.h"
#include "route/route_kinds.h"

#include <zucomn/model/elements.h>

#include <algorithm>
#include <array>

namespace zu {

namespace {

using zucomn::RouteFault;

/// The codes of elements with one size: lines, elbows, offsets, valves and ends. Tees, reducers and equipment
/// may join other sizes.
constexpr std::array kOneSize{1, 2, 3, 6, 7, 8, 9, 12, 16, 17, 18, 99};
/// The codes of fittings that turn a route up or down: their other end lies at another height.
constexpr std::array kVertical{8, 9, 10, 11, 17, 18};

template <typename Codes>
bool isAmong(const Codes& codes, int code) {
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

bool isEquipment(const CountedElement& element) {
    return element.code == zucomn::kEquipment;
}

/// A joint of two elements, at a place of the first.
struct AuditedJoint {
    const CountedElement& first;
    const CountedElement& second;
    const AcGePoint3d& place;

    /// `describe` appends what is wrong with one of the elements.
    template <typename Describe>
    void report(RouteFault fault, RouteAudit& audit, Describe describe) const {
        ProblemText text;
        describe(text, first);
        text << L", and " << second.id << L", joined at " << place << L", ";
        describe(text, second);
        audit.add({first.id, fault, text.take(), false, std::vector{second.id}, place});
    }
};

void auditKinds(const AuditedJoint& joint, RouteAudit& audit) {
    if (isRouteKind(joint.first.kind) && isRouteKind(joint.second.kind) &&
        joint.first.kind != joint.second.kind && !isEquipment(joint.first) && !isEquipment(joint.second))
        joint.report(RouteFault::kindMismatch, audit, [](ProblemText& text, const CountedElement& element) {
            text << L"has link kind " << element.kind;
        });
}

void auditSizes(const AuditedJoint& joint, RouteAudit& audit) {
    if (isAmong(kOneSize, joint.first.code) && isAmong(kOneSize, joint.second.code) &&
        !joint.first.size.empty() && !joint.second.size.empty() && joint.first.size != joint.second.size)
        joint.report(RouteFault::sizeMismatch, audit, [](ProblemText& text, const CountedElement& element) {
            text << L"has size \"" << element.size << L"\"";
        });
}

void auditHeights(const AuditedJoint& joint, RouteAudit& audit) {
    const auto canDiffer = [](const CountedElement& element) {
        return !element.heights || isEquipment(element) || isAmong(kVertical, element.code);
    };
    if (canDiffer(joint.first) || canDiffer(joint.second))
        return;
    const auto [low, high] = std::minmax(joint.first.heights->low, joint.first.heights->high);
    const auto [otherLow, otherHigh] = std::minmax(joint.second.heights->low, joint.second.heights->high);
    if (std::max(low, otherLow) - std::min(high, otherHigh) <= zucomn::kHeightTolerance)
        return;
    joint.report(RouteFault::heightMismatch, audit, [](ProblemText& text, const CountedElement& element) {
        const auto [least, greatest] = std::minmax(element.heights->low, element.heights->high);
        text << L"lies at height " << Rounded{least};
        if (least != greatest)
            text << L" to " << Rounded{greatest};
    });
}

} // namespace

void auditJoints(const Network& network, RouteAudit& audit) {
    for (const NetworkPoint& point : network.points()) {
        // Each joint is met from both sides.
        if (point.joinedCount != 1 || point.joined[0] < point.element)
            continue;
        const AuditedJoint joint{network.elements()[point.element], network.elements()[point.joined[0]],
                                 network.positionOf(point)};
        auditKinds(joint, audit);
        auditSizes(joint, audit);
        auditHeights(joint, audit);
    }
}

} // namespace zu
