#include "frame/environment.h"
#include "group_access.h"
#include "group_repair.h"

#include <zucomn/dbservices.h>
#include <zucomn/frame.h>
#include <zucomn/route.h>
#include <zucomn/settings.h>

#include <dbgroup.h>
#include <dbobjptr.h>

#include <algorithm>
#include <optional>
#include <unordered_set>

namespace {

int linkKindOf(AcDbObjectId element) {
    int kind = -1;
    RootComn_GetBlockRootKind(element, &kind);
    return kind;
}

/// Returns whether the settings skip the repair for the sake of speed.
bool skipsRepair() {
    return _wtoi(zu::environmentSetting(L"GR_SPEED_UP").value_or(CString())) == 1;
}

std::vector<zu::ElementGroup> knownGroupsOf(const AcArray<AcDbObjectId>& ids, const CStringArray& names,
                                            const CUIntArray& kinds, int count) {
    std::vector<zu::ElementGroup> groups;
    for (int i = 0; i < count && i < ids.length() && i < names.GetSize() && i < kinds.GetSize(); ++i)
        groups.push_back({ids[i], names[i], static_cast<int>(kinds[i])});
    return groups;
}

/// The members of the groups, each once, in order; nullopt when a group can't be opened.
std::optional<AcDbObjectIdArray> membersOf(const std::vector<zu::ElementGroup>& groups) {
    std::unordered_set<AcDbObjectId> seen;
    AcDbObjectIdArray members;
    for (const zu::ElementGroup& group : groups) {
        const auto ids = zu::groupMembers(group.id);
        if (!ids)
            return std::nullopt;
        for (const AcDbObjectId id : *ids)
            if (seen.insert(id).second)
                members.append(id);
    }
    return members;
}

bool isInRouteGroup(const std::vector<zu::ElementGroup>& groups, int kind) {
    return std::any_of(groups.begin(), groups.end(), [kind](const zu::ElementGroup& group) {
        return group.kind == kind && zu::isRouteGroupName(group.name);
    });
}

/// The candidates that are neither in `placed` nor in a route group of the kind; nullopt when one of them or
/// of its groups can't be opened.
std::optional<AcDbObjectIdArray> withoutRoute(const AcDbObjectIdArray& candidates,
                                              const AcDbObjectIdArray& placed, int kind) {
    const std::unordered_set<AcDbObjectId> known(placed.begin(), placed.end());
    zu::GroupReader reader;
    AcDbObjectIdArray found;
    for (const AcDbObjectId candidate : candidates) {
        if (known.contains(candidate) || ZuComn_ExistenceIdCheck(candidate) != 0)
            continue;
        const auto groups = reader.groupsOf(candidate);
        if (!groups)
            return std::nullopt;
        if (!isInRouteGroup(*groups, kind))
            found.append(candidate);
    }
    return found;
}

} // namespace

int RootComn_GetRootGroups(const AcDbObjectId& element, int* count, AcArray<AcDbObjectId>& groups,
                           CStringArray& names, CUIntArray& kinds, int kindFilter, int /*unused*/) {
    if (count != nullptr)
        *count = 0;
    const auto held = zu::GroupReader().groupsOf(element);
    if (!held)
        return -1;
    for (const zu::ElementGroup& group : *held) {
        if (group.kind != 0 && kindFilter != 0 && group.kind != kindFilter)
            continue;
        groups.append(group.id);
        names.Add(group.name);
        kinds.Add(static_cast<UINT>(group.kind == 0 ? kindFilter : group.kind));
        if (count != nullptr)
            ++*count;
    }
    return 0;
}

int RootComn_GetRootGroups5(const AcDbObjectId& element, int* count, AcArray<AcDbObjectId>& groups,
                            CStringArray& names, CUIntArray& kinds, int kindFilter, int unused) {
    if (count != nullptr)
        *count = 0;
    if (linkKindOf(element) == 0 && RootComn_GetRootGroups3(element, 0) != 0)
        return -1;
    return RootComn_GetRootGroups(element, count, groups, names, kinds, kindFilter, unused);
}

AcDbObjectId RootComn_GetRootGroups2(const AcDbObjectId& element, int kind) {
    if (!skipsRepair())
        RootComn_GetRootGroups3(element, kind);
    const auto groups = zu::GroupReader().groupsOf(element);
    const zu::ElementGroup* const lowest = groups ? zu::lowestNumbered(*groups, kind) : nullptr;
    return lowest != nullptr ? lowest->id : AcDbObjectId();
}

int RootComn_GetRootGroups3(const AcDbObjectId& element, int kind) {
    if (ZuComn_ExistenceIdCheck(element) != 0)
        return -1;
    zu::GroupReader reader;
    return zu::repairMembership(element, kind, reader) ? 0 : -1;
}

int RootComn_GetRootGroups4(const AcDbObjectId& element) {
    if (ZuComn_ExistenceIdCheck(element) != 0 || !zu::canBeRepaired(element))
        return -1;
    const auto groups = zu::GroupReader().groupsOf(element);
    if (!groups)
        return -1;
    for (const zu::ElementGroup& group : *groups)
        if (zu::isRouteGroupName(group.name))
            ZuComn_ExistenceGroupIdChecks(group.id);
    return RootComn_GetRootGroups3(element, 0);
}

int RootComn_SetGroupToUnknownGroupMember(const AcDbObjectId& /*element*/, int kind, int knownCount,
                                          int unknownCount, const AcArray<AcDbObjectId>& knownGroups,
                                          const CStringArray& knownNames, const CUIntArray& knownKinds,
                                          const AcArray<AcDbObjectId>& unknownGroups,
                                          const CStringArray& unknownNames, const CUIntArray& unknownKinds,
                                          AcArray<AcDbObjectId>& moved, int /*unused*/) {
    const auto known = knownGroupsOf(knownGroups, knownNames, knownKinds, knownCount);
    const auto unknown = knownGroupsOf(unknownGroups, unknownNames, unknownKinds, unknownCount);
    const zu::ElementGroup* const target = zu::lowestNumbered(known, kind);
    if (target == nullptr)
        return -1;
    const auto placed = membersOf(known);
    const auto candidates = membersOf(unknown);
    if (!placed || !candidates)
        return -1;
    const auto unplaced = withoutRoute(*candidates, *placed, target->kind);
    const auto joining = unplaced ? zu::usableMembers(*unplaced, target->id.database()) : std::nullopt;
    const AcDbObjectPointer<AcDbGroup> group(target->id, AcDb::kForWrite);
    if (!joining || group.openStatus() != Acad::eOk || group->append(*joining) != Acad::eOk)
        return -1;
    moved.append(*joining);
    return 0;
}
