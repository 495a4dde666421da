#include "group_repair.h"

#include "group_access.h"

#include <zucomn/dbservices.h>
#include <zucomn/route.h>

namespace zu {

namespace {

constexpr int kRouteKinds = 4;

void takeOut(AcDbObjectId element, const ElementGroup& group) {
    CString name;
    int remaining = -1;
    if (RootComn_DelGroupMember(group.id, element, name, &remaining) == 0 && remaining == 0)
        RootComn_DelGroup(group.id);
}

void settle(AcDbObjectId element, const std::vector<ElementGroup>& groups, int kind) {
    const ElementGroup* const kept = lowestNumbered(groups, kind);
    for (const ElementGroup& group : groups)
        if (&group != kept && group.kind == kind && isRouteGroupName(group.name))
            takeOut(element, group);
}

} // namespace

std::vector<ElementGroup> groupsOf(AcDbObjectId element) {
    AcDbObjectIdArray ids;
    std::vector<ElementGroup> groups;
    if (ZuComn_GetGroupID(element, ids) != 0)
        return groups;
    for (const AcDbObjectId id : ids) {
        ElementGroup group{id, groupName(id).value_or(CString()), -1};
        RootComn_GetRootKind2(id, &group.kind);
        groups.push_back(group);
    }
    return groups;
}

const ElementGroup* lowestNumbered(const std::vector<ElementGroup>& groups, int kind) {
    const auto isOfKind = [kind](const ElementGroup& group) {
        return kind != 0 ? group.kind == kind : group.kind > 0 && group.kind <= kRouteKinds;
    };
    const ElementGroup* lowest = nullptr;
    for (const ElementGroup& group : groups) {
        if (!isRouteGroupName(group.name) || !isOfKind(group))
            continue;
        if (lowest == nullptr || groupNumber(group.name) < groupNumber(lowest->name))
            lowest = &group;
    }
    return lowest;
}

void settleMembership(AcDbObjectId element, int kind) {
    settle(element, groupsOf(element), kind);
}

void settleMembership(AcDbObjectId element) {
    // Most elements are in one group, whose kind need not be read.
    AcDbObjectIdArray ids;
    ZuComn_GetGroupID(element, ids);
    if (ids.length() < 2)
        return;
    const std::vector<ElementGroup> groups = groupsOf(element);
    for (int kind = 1; kind <= kRouteKinds; ++kind)
        settle(element, groups, kind);
}

} // namespace zu
