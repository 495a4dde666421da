#include "dbservices/group_lookup.h"
#include "group_access.h"
#include "replace_reactors.h"

#include <zucomn/replace_reactor.h>
#include <zucomn/route.h>

#include <dbents.h>
#include <dbgroup.h>
#include <dbobjptr.h>

#include <algorithm>
#include <optional>
#include <unordered_set>

namespace {

using IdSet = std::unordered_set<AcDbObjectId>;

/// Entities on locked layers can become members of groups but can't be erased.
bool canBeChanged(const AcDbObjectIdArray& ids, bool onLockedLayers) {
    return std::all_of(ids.begin(), ids.end(), [onLockedLayers](AcDbObjectId id) {
        const AcDbEntityPointer entity(id, AcDb::kForWrite, false, onLockedLayers);
        return entity.openStatus() == Acad::eOk;
    });
}

/// Those of `ids` that are not among the others, each once.
AcDbObjectIdArray without(const AcDbObjectIdArray& ids, const AcDbObjectIdArray& others) {
    IdSet seen(others.begin(), others.end());
    AcDbObjectIdArray rest;
    for (const AcDbObjectId id : ids)
        if (seen.insert(id).second)
            rest.append(id);
    return rest;
}

/// The groups among the reactors of the elements, each once; nullopt when one can't be changed now.
std::optional<AcDbObjectIdArray> groupsToChange(const AcDbObjectIdArray& elements) {
    AcDbObjectIdArray groups;
    IdSet seen;
    for (const AcDbObjectId element : elements) {
        const auto held = zu::reactorGroups(element);
        if (!held || !held->isComplete)
            return std::nullopt;
        for (const AcDbObjectId group : held->ids)
            if (seen.insert(group).second)
                groups.append(group);
    }
    const bool canChange = std::all_of(groups.begin(), groups.end(), zu::canBeDeleted);
    return canChange ? std::optional(groups) : std::nullopt;
}

void replaceInGroup(AcDbObjectId groupId, const AcDbObjectIdArray& oldIds, const AcDbObjectIdArray& newIds) {
    const AcDbObjectPointer<AcDbGroup> group(groupId, AcDb::kForWrite);
    if (group.openStatus() != Acad::eOk)
        return;
    AcDbObjectIdArray members;
    group->allEntityIds(members);
    const IdSet leaving(oldIds.begin(), oldIds.end());
    const auto first = std::find_if(members.begin(), members.end(),
                                    [&](AcDbObjectId member) { return leaving.contains(member); });
    if (first == members.end())
        return;
    auto place = static_cast<Adesk::UInt32>(first - members.begin());
    for (const AcDbObjectId id : newIds)
        if (group->insertAt(place, id) == Acad::eOk)
            ++place;
    for (const AcDbObjectId id : oldIds)
        group->remove(id);
}

void eraseAll(const AcDbObjectIdArray& ids) {
    for (const AcDbObjectId id : ids) {
        const AcDbEntityPointer entity(id, AcDb::kForWrite);
        if (entity.openStatus() == Acad::eOk)
            entity->erase();
    }
}

/// Inserts the new elements where the old ones are and erases these. Returns false, with nothing changed,
/// when an element or a group can't be changed. After a merge the new elements are in one route group of each
/// kind only.
bool replace(const AcDbObjectIdArray& oldIds, const AcDbObjectIdArray& newIds, bool isMerge) {
    if (oldIds.isEmpty() || !canBeChanged(oldIds, false) || !canBeChanged(newIds, true))
        return false;
    const AcDbObjectIdArray leaving = without(oldIds, newIds);
    const auto groups = groupsToChange(leaving);
    if (!groups || (isMerge && !groupsToChange(newIds)))
        return false;
    if (!isMerge && leaving.contains(oldIds.first()))
        zu::notifyErased(oldIds.first());
    for (const AcDbObjectId group : *groups)
        replaceInGroup(group, leaving, newIds);
    if (isMerge)
        for (const AcDbObjectId id : newIds)
            (void)RootComn_GetRootGroups3(id, 0);
    eraseAll(leaving);
    for (const AcDbObjectId id : leaving)
        zu::notifyTerminated(id, newIds);
    return true;
}

} // namespace

int RuleComn_rootReplace(const AcArray<AcDbObjectId>& oldIds, const AcArray<AcDbObjectId>& newIds) {
    return replace(oldIds, newIds, false) ? 0 : -1;
}

int RuleComn_rootMerge(const AcArray<AcDbObjectId>& mergedIds, AcDbObjectId remaining) {
    AcDbObjectIdArray newIds;
    newIds.append(remaining);
    return replace(mergedIds, newIds, true) ? 0 : -1;
}
