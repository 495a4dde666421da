#include <zucomn/dbservices.h>
#include <zucomn/strings.h>

#include <arxutil.h>
#include <dbgroup.h>
#include <dbobjptr.h>

#include <windows.h>

#include <memory>

namespace {

bool isGroup(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbObject> object(id);
    return object.openStatus() == Acad::eOk && object->isKindOf(AcDbGroup::desc());
}

/// The ids of the persistent reactors of an element; false when it can't be opened or has no reactor list.
bool persistentReactors(AcDbObjectId element, AcArray<AcDbObjectId>& ids) {
    const AcDbObjectPointer<AcDbObject> object(element, AcDb::kForRead, true);
    if (object.openStatus() != Acad::eOk)
        return false;
    const AcDbVoidPtrArray* const reactors = object->reactors();
    if (reactors == nullptr)
        return false;
    for (const void* const reactor : *reactors)
        if (const AcDbObjectId id = acdbPersistentReactorObjectId(reactor); !id.isNull())
            ids.append(id);
    return true;
}

/// Null for a group without members, and for what can't be opened as one.
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
    if (ApiComn_extractAttributesArrayID(first, L"ZU_LINK", record) != 0)
        return false;
    CStringArray fields;
    ZuComn_GetSplitString(record[0], fields, nullptr, L"|");
    return _wtoi(fields[0]) == linkKind;
}

} // namespace

int ZuComn_GetGroupID(AcDbObjectId element, AcArray<AcDbObjectId>& groups) {
    AcArray<AcDbObjectId> reactors;
    if (!persistentReactors(element, reactors))
        return -1;
    for (const AcDbObjectId id : reactors)
        if (isGroup(id))
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
