#include "group_access.h"

#include <zucomn/frame.h>
#include <zucomn/route.h>

#include <dbdict.h>
#include <dbgroup.h>
#include <dbobjptr.h>

#include <memory>

namespace {

constexpr const wchar_t* kAnonymousKey = L"*";

/// Adds a group to the dictionary, which then owns it; leaves it open for write.
bool enter(std::unique_ptr<AcDbGroup>& group, const CString& name, AcDbObjectId& id) {
    AcDbDatabase* const database = ZuComn_getWorkDatabase();
    AcDbDictionary* dictionary = nullptr;
    if (database == nullptr || database->getGroupDictionary(dictionary, AcDb::kForWrite) != Acad::eOk)
        return false;
    const bool isFree = name == kAnonymousKey || !dictionary->has(name);
    const bool entered = isFree && dictionary->setAt(name, group.get(), id) == Acad::eOk;
    dictionary->close();
    return entered;
}

int report(Acad::ErrorStatus status) {
    return status == Acad::eOk ? 0 : -1;
}

} // namespace

int RootComn_GetNewGroupName(CString& name) {
    name = kAnonymousKey;
    return 0;
}

int RootComn_CreateNewGroup(const CString& name, const AcArray<AcDbObjectId>& elements,
                            AcDbObjectId& newGroup, bool selectable) {
    const auto members = zu::usableMembers(elements, ZuComn_getWorkDatabase());
    if (!members || members->isEmpty() || name.IsEmpty())
        return -1;
    auto group = std::make_unique<AcDbGroup>(name, selectable);
    AcDbObjectId id;
    if (!enter(group, name, id))
        return -1;
    AcDbGroup* const entered = group.release();
    entered->append(*members);
    entered->close();
    newGroup = id;
    return 0;
}

int RootComn_CreateNewGroup(const CString& name, const AcDbObjectId& element, AcDbObjectId& newGroup,
                            bool selectable) {
    AcDbObjectIdArray elements;
    elements.append(element);
    return RootComn_CreateNewGroup(name, elements, newGroup, selectable);
}

int RootComn_AddGroupMember(const AcDbObjectId& groupId, const AcDbObjectId& element) {
    const AcDbObjectPointer<AcDbGroup> group(groupId, AcDb::kForWrite);
    if (group.openStatus() != Acad::eOk)
        return -1;
    const Acad::ErrorStatus status = group->prepend(element);
    return status == Acad::eAlreadyInGroup ? 0 : report(status);
}

int RootComn_AddGroupMember(const CString& name, const AcDbObjectId& element) {
    return RootComn_AddGroupMember(zu::findGroup(name), element);
}

int RootComn_DelGroupMember(const AcDbObjectId& groupId, const AcDbObjectId& element) {
    const AcDbObjectPointer<AcDbGroup> group(groupId, AcDb::kForWrite);
    return group.openStatus() == Acad::eOk ? report(group->remove(element)) : -1;
}

int RootComn_DelGroupMember(const AcDbObjectId& groupId, const AcDbObjectId& element, CString& name,
                            int* remaining) {
    if (RootComn_DelGroupMember(groupId, element) != 0)
        return -1;
    RootComn_GetGroupNameFromGroupOid(groupId, name);
    return remaining != nullptr ? RootComn_GetGroupSize(groupId, remaining) : 0;
}

int RootComn_DelGroupMember(const CString& groupName, const AcDbObjectId& element, CString& name,
                            int* remaining) {
    return RootComn_DelGroupMember(zu::findGroup(groupName), element, name, remaining);
}

int RootComn_DelGroup(const AcDbObjectId& groupId) {
    const AcDbObjectPointer<AcDbGroup> group(groupId, AcDb::kForWrite);
    if (group.openStatus() != Acad::eOk)
        return -1;
    const AcDbObjectPointer<AcDbDictionary> dictionary(group->ownerId(), AcDb::kForWrite);
    if (dictionary.openStatus() != Acad::eOk || dictionary->remove(groupId) != Acad::eOk)
        return -1;
    // A group outside the dictionary is deleted: its members must not refer to it.
    group->clear();
    return report(group->erase());
}

int RootComn_DelGroup(const CString& name) {
    return RootComn_DelGroup(zu::findGroup(name));
}

int RootComn_GetGroupMember(const AcDbObjectId& group, AcArray<AcDbObjectId>& members) {
    const auto found = zu::groupMembers(group);
    if (!found)
        return -1;
    members = *found;
    return 0;
}

int RootComn_GetGroupSize(const AcDbObjectId& group, int* size) {
    const AcDbObjectPointer<AcDbGroup> opened(group);
    if (opened.openStatus() != Acad::eOk)
        return -1;
    if (size != nullptr)
        *size = static_cast<int>(opened->numEntities());
    return 0;
}

int RootComn_GetGroupSize(const CString& name, int* size) {
    return RootComn_GetGroupSize(zu::findGroup(name), size);
}

int RootComn_GetGroupNameFromGroupOid(const AcDbObjectId& group, CString& name) {
    const auto found = zu::groupName(group);
    if (!found)
        return -1;
    name = *found;
    return 0;
}

int RootComn_GroupMemberCopy(const AcDbObjectId& source, const AcDbObjectId& target) {
    const auto members = zu::groupMembers(source);
    if (!members || source.database() != target.database())
        return -1;
    const auto live = zu::usableMembers(*members, target.database());
    const AcDbObjectPointer<AcDbGroup> group(target, AcDb::kForWrite);
    if (!live || group.openStatus() != Acad::eOk)
        return -1;
    return report(group->append(*live));
}

int RootComn_GroupMemberCopy(const CString& source, const CString& target) {
    return RootComn_GroupMemberCopy(zu::findGroup(source), zu::findGroup(target));
}
