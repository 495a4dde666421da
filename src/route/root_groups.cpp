#include "group_access.h"
#include "group_repair.h"

#include <zucomn/dbservices.h>
#include <zucomn/frame.h>
#include <zucomn/route.h>
#include <zucomn/settings.h>

#include <dbgroup.h>
#include <dbobjptr.h>

#include <algorithm>
#include <unordered_set>

namespace {

int linkKindOf(AcDbObjectId element) {
    int kind = -1;
    RootComn_GetBlockRootKind(element, &kind);
    return kind;
}

/// The setting that trades the repair for speed.
bool skipsRepair() {
    CString value;
    return ZuComn_GetEnv(value, ZUCE_INIFILE, L"環境設定", L"GR_SPEED_UP") == 0 && _wtoi(value) == 1;
}

std::vector<zu::ElementGroup> knownGroupsOf(const AcArray<AcDbObjectId>& ids, const CStringArray& names,
                                            const CUIntArray& kinds, int count) {
    std::vector<zu::ElementGroup> groups;
    for (int i = 0; i < count && i < ids.length() && i < names.GetSize() && i < kinds.GetSize(); ++i)
        groups.push_back({ids[i], names[i], static_cast<int>(kinds[i])});
    return groups;
}

std::unordered_set<AcDbObjectId> membersOf(const std::vector<zu::ElementGroup>& groups) {
    std::unordered_set<AcDbObjectId> members;
    for (const zu::ElementGroup& group : groups)
        if (const auto ids = zu::groupMembers(group.id))
            members.insert(ids->begin(), ids->end());
    return members;
}

bool isInRouteGroup(AcDbObjectId element, int kind, zu::GroupReader& reader) {
    const std::vector<zu::ElementGroup> groups = reader.groupsOf(element);
    return std::any_of(groups.begin(), groups.end(), [kind](const zu::ElementGroup& group) {
        return group.kind == kind && zu::isRouteGroupName(group.name);
    });
}

} // namespace

int RootComn_GetRootGroups(const AcDbObjectId& element, int* count, AcArray<AcDbObjectId>& groups,
                           CStringArray& names, CUIntArray& kinds, int kindFilter, int /*unused*/) {
    if (count != nullptr)
        *count = 0;
    AcDbObjectIdArray held;
    if (ZuComn_GetGroupID(element, held) != 0)
        return -1;
    for (const zu::ElementGroup& group : zu::GroupReader().groupsOf(element)) {
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
    if (linkKindOf(element) == 0)
        RootComn_GetRootGroups3(element, 0);
    return RootComn_GetRootGroups(element, count, groups, names, kinds, kindFilter, unused);
}

AcDbObjectId RootComn_GetRootGroups2(const AcDbObjectId& element, int kind) {
    if (!skipsRepair())
        RootComn_GetRootGroups3(element, kind);
    const std::vector<zu::ElementGroup> groups = zu::GroupReader().groupsOf(element);
    const zu::ElementGroup* const lowest = zu::lowestNumbered(groups, kind);
    return lowest != nullptr ? lowest->id : AcDbObjectId();
}

int RootComn_GetRootGroups3(const AcDbObjectId& element, int kind) {
    if (ZuComn_ExistenceIdCheck(element) != 0)
        return -1;
    if (zu::GroupReader reader; kind == 0)
        zu::settleMembership(element, reader);
    else
        zu::settleMembership(element, kind);
    return 0;
}

int RootComn_GetRootGroups4(const AcDbObjectId& element) {
    if (ZuComn_ExistenceIdCheck(element) != 0)
        return -1;
    for (const zu::ElementGroup& group : zu::GroupReader().groupsOf(element))
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
    std::unordered_set<AcDbObjectId> placed = membersOf(known);
    zu::GroupReader reader;
    const AcDbObjectPointer<AcDbGroup> group(target->id, AcDb::kForWrite);
    if (group.openStatus() != Acad::eOk)
        return -1;
    for (const zu::ElementGroup& source : unknown) {
        const auto members = zu::groupMembers(source.id);
        if (!members)
            continue;
        for (const AcDbObjectId member : *members)
            if (placed.insert(member).second && !isInRouteGroup(member, target->kind, reader) &&
                group->append(member) == Acad::eOk)
                moved.append(member);
    }
    return 0;
}
