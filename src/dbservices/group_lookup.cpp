#include "group_lookup.h"

#include "route/link_record.h"

#include <zucomn/dbservices.h>
#include <zucomn/strings.h>

#include <arxutil.h>
#include <dbgroup.h>
#include <dbobjptr.h>

#include <windows.h>

#include <memory>
#include <unordered_set>

namespace {

/// The ids of the persistent reactors of an element, each once; nullopt when it can't be opened or has no
/// reactor list.
std::optional<AcDbObjectIdArray> persistentReactors(AcDbObjectId element) {
    const AcDbObjectPointer<AcDbObject> object(element, AcDb::kForRead, true);
    const AcDbVoidPtrArray* const reactors = object.openStatus() == Acad::eOk ? object->reactors() : nullptr;
    if (reactors == nullptr)
        return std::nullopt;
    AcDbObjectIdArray ids;
    std::unordered_set<AcDbObjectId> seen;
    for (const void* const reactor : *reactors)
        if (const AcDbObjectId id = acdbPersistentReactorObjectId(reactor);
            !id.isNull() && seen.insert(id).second)
            ids.append(id);
    return ids;
}

/// Null for a group without members and for objects that can't be opened as a group.
AcDbObjectId firstMember(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbGroup> group(id);
    if (group.openStatus() != Acad::eOk)
        return {};
    const std::unique_ptr<AcDbGroupIterator> members(group->newIterator());
    return members->objectId();
}

/// True when the group's first member carries the link kind. Throws for an empty link record.
bool servesLinkKind(AcDbObjectId group, int linkKind) {
    const AcDbObjectId first = firstMember(group);
    CStringArray record;
    if (ApiComn_extractAttributesArrayID(first, zu::kLinkApplication, record) != 0)
        return false;
    CStringArray fields;
    ZuComn_GetSplitString(record[0], fields, nullptr, L"|");
    return _wtoi(fields[0]) == linkKind;
}

} // namespace

std::optional<zu::ReactorGroups> zu::reactorGroups(AcDbObjectId element) {
    const auto reactors = persistentReactors(element);
    if (!reactors)
        return std::nullopt;
    ReactorGroups groups;
    for (const AcDbObjectId id : *reactors) {
        if (!id.objectClass()->isDerivedFrom(AcDbGroup::desc()))
            continue;
        const AcDbObjectPointer<AcDbGroup> group(id);
        if (group.openStatus() == Acad::eOk)
            groups.ids.append(id);
        else if (group.openStatus() != Acad::eWasErased)
            groups.isComplete = false;
    }
    return groups;
}

int ZuComn_GetGroupID(AcDbObjectId element, AcArray<AcDbObjectId>& groups) {
    const auto found = zu::reactorGroups(element);
    if (!found)
        return -1;
    for (const AcDbObjectId id : found->ids)
        groups.append(id);
    return 0;
}

AcDbObjectId ZuComn_GetGroupID(AcDbObjectId element, int linkKind) {
    AcArray<AcDbObjectId> groups;
    if (ZuComn_GetGroupID(element, groups) != 0)
        return {};
    if (groups.length() == 1)
        return groups.first();
    for (const AcDbObjectId group : groups)
        if (servesLinkKind(group, linkKind))
            return group;
    return {};
}
