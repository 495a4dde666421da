#include "group_repair.h"

#include "group_access.h"

#include <zucomn/dbservices.h>
#include <zucomn/route.h>

namespace zu {

namespace {

constexpr int kRouteKinds = 4;

constexpr bool isRouteKind(int kind) {
    return kind > 0 && kind <= kRouteKinds;
}

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

const ElementGroup& GroupReader::read(AcDbObjectId id) {
    const auto [entry, isNew] = known_.try_emplace(id);
    ElementGroup& group = entry->second;
    if (isNew) {
        group = {id, groupName(id).value_or(CString()), -1};
        RootComn_GetRootKind2(id, &group.kind);
    }
    return group;
}

std::vector<ElementGroup> GroupReader::groupsOf(AcDbObjectId element) {
    AcDbObjectIdArray ids;
    std::vector<ElementGroup> groups;
    if (ZuComn_GetGroupID(element, ids) != 0)
        return groups;
    for (const AcDbObjectId id : ids)
        groups.push_back(read(id));
    return groups;
}

const ElementGroup* lowestNumbered(const std::vector<ElementGroup>& groups, int kind) {
    const auto isOfKind = [kind](const ElementGroup& group) {
        return isRouteKind(group.kind) && (kind == 0 || group.kind == kind);
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
    if (isRouteKind(kind))
        settle(element, GroupReader().groupsOf(element), kind);
}

void settleMembership(AcDbObjectId element, GroupReader& reader) {
    // Most elements are in one group, whose kind need not be read.
    AcDbObjectIdArray ids;
    ZuComn_GetGroupID(element, ids);
    if (ids.length() < 2)
        return;
    const std::vector<ElementGroup> groups = reader.groupsOf(element);
    for (int kind = 1; kind <= kRouteKinds; ++kind)
        settle(element, groups, kind);
}

} // namespace zu
