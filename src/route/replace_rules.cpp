#include "group_access.h"
#include "replace_reactors.h"

#include <zucomn/dbservices.h>
#include <zucomn/replace_reactor.h>

#include <dbents.h>
#include <dbgroup.h>
#include <dbobjptr.h>

#include <algorithm>
#include <unordered_set>

namespace {

using IdSet = std::unordered_set<AcDbObjectId>;

bool canBeChanged(const AcDbObjectIdArray& ids) {
    return std::all_of(ids.begin(), ids.end(), [](AcDbObjectId id) {
        const AcDbEntityPointer entity(id, AcDb::kForWrite);
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

/// The groups that hold any of the elements, each once.
AcDbObjectIdArray groupsOfAny(const AcDbObjectIdArray& elements) {
    AcDbObjectIdArray groups;
    IdSet seen;
    for (const AcDbObjectId element : elements) {
        AcDbObjectIdArray held;
        ZuComn_GetGroupID(element, held);
        for (const AcDbObjectId group : held)
            if (seen.insert(group).second)
                groups.append(group);
    }
    return groups;
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

/// Puts the new elements in the place of the old ones and erases these; false when one of them can't be
/// changed.
bool replace(const AcDbObjectIdArray& oldIds, const AcDbObjectIdArray& newIds, bool tellsErasure) {
    if (oldIds.isEmpty() || !canBeChanged(oldIds) || !canBeChanged(newIds))
        return false;
    const AcDbObjectIdArray leaving = without(oldIds, newIds);
    if (tellsErasure && leaving.contains(oldIds.first()))
        zu::tellErased(oldIds.first());
    for (const AcDbObjectId group : groupsOfAny(leaving))
        replaceInGroup(group, leaving, newIds);
    eraseAll(leaving);
    for (const AcDbObjectId id : leaving)
        zu::tellTerminated(id, newIds);
    return true;
}

} // namespace

int RuleComn_rootReplace(const AcArray<AcDbObjectId>& oldIds, const AcArray<AcDbObjectId>& newIds) {
    return replace(oldIds, newIds, true) ? 0 : -1;
}

int RuleComn_rootMerge(const AcArray<AcDbObjectId>& mergedIds, AcDbObjectId remaining) {
    AcDbObjectIdArray newIds;
    newIds.append(remaining);
    return replace(mergedIds, newIds, false) ? 0 : -1;
}
