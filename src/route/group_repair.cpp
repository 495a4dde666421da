#include "group_repair.h"

#include "dbservices/group_lookup.h"
#include "group_access.h"
#include "route_kinds.h"

#include <zucomn/route.h>

#include <dbgroup.h>
#include <dbobjptr.h>

#include <algorithm>

namespace zu {

namespace {

/// False for groups that are only among the element's reactors, as in damaged drawings.
bool lists(AcDbObjectId id, AcDbObjectId element) {
    const AcDbObjectPointer<AcDbGroup> group(id);
    const AcDbEntityPointer entity(element);
    return group.openStatus() == Acad::eOk && group->has(entity.object());
}

/// The groups of the kind that the element is to leave.
void addSurplus(const std::vector<ElementGroup>& groups, int kind, AcDbObjectIdArray& surplus) {
    const ElementGroup* const kept = lowestNumbered(groups, kind);
    for (const ElementGroup& group : groups)
        if (&group != kept && group.kind == kind && isRouteGroupName(group.name))
            surplus.append(group.id);
}

bool removeFrom(AcDbObjectId element, const AcDbObjectIdArray& groups) {
    if (groups.isEmpty())
        return true;
    if (!canBeChanged(element) || !std::all_of(groups.begin(), groups.end(), canBeDeleted))
        return false;
    for (const AcDbObjectId group : groups) {
        CString name;
        int remaining = -1;
        if (RootComn_DelGroupMember(group, element, name, &remaining) == 0 && remaining == 0)
            RootComn_DelGroup(group);
    }
    return true;
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

std::optional<std::vector<ElementGroup>> GroupReader::groupsOf(AcDbObjectId element) {
    const auto named = reactorGroups(element);
    if (!named || !named->isComplete)
        return std::nullopt;
    std::vector<ElementGroup> groups;
    for (const AcDbObjectId id : named->ids)
        if (lists(id, element))
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

bool canBeRepaired(AcDbObjectId element) {
    const auto groups = reactorGroups(element);
    return groups && groups->isComplete && canBeChanged(element) &&
           std::all_of(groups->ids.begin(), groups->ids.end(), canBeDeleted);
}

bool repairMembership(AcDbObjectId element, int kind, GroupReader& reader) {
    if (kind != 0 && !isRouteKind(kind))
        return true;
    const auto named = reactorGroups(element);
    if (!named || !named->isComplete)
        return false;
    // Most elements are in one group, whose kind need not be read.
    if (named->ids.length() < 2)
        return true;
    const auto groups = reader.groupsOf(element);
    if (!groups)
        return false;
    AcDbObjectIdArray surplus;
    for (const RouteKindRow& each : kRouteKinds)
        if (kind == 0 || kind == each.number)
            addSurplus(*groups, each.number, surplus);
    return removeFrom(element, surplus);
}

} // namespace zu
