#include "group_lookup.h"

#include "reactor_ids.h"
#include "route/link_record.h"

#include <zucomn/dbservices.h>
#include <zucomn/strings.h>

#include <arxutil.h>
#include <dbgroup.h>
#include <dbobjptr.h>

#include <windows.h>

#include <memory>

namespace {

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
    const AcDbObjectPointer<AcDbObject> object(element, AcDb::kForRead, true);
    return object.openStatus() == Acad::eOk ? reactorGroups(*object.object()) : std::nullopt;
}

std::optional<zu::ReactorGroups> zu::reactorGroups(const AcDbObject& element) {
    if (element.database() == nullptr)
        return std::nullopt;
    ReactorGroups groups;
    std::vector<AcDbObjectId> reactors;
    readPersistentReactors(element, reactors);
    for (const AcDbObjectId id : reactors) {
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
