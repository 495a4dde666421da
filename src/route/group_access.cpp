#include "group_access.h"

#include "connection_points.h"
#include "element_code.h"
#include "frame/text_view.h"

#include <zucomn/frame.h>

#include <dbdict.h>
#include <dbgroup.h>
#include <dbmain.h>
#include <dbobjptr.h>

#include <windows.h>

#include <unordered_set>

namespace zu {

namespace {

/// Membership in groups is not drawn: entities on locked layers can be grouped too.
constexpr bool kOnLockedLayers = true;

constexpr const wchar_t* kNamedPrefix = L"RTGR";
constexpr int kNumberDigits = 5;

} // namespace

AcDbObjectId findGroup(const CString& name) {
    AcDbDatabase* const database = ZuComn_getWorkDatabase();
    AcDbObjectId group;
    if (database == nullptr || name.IsEmpty())
        return group;
    const AcDbObjectPointer<AcDbDictionary> dictionary(database->groupDictionaryId());
    if (dictionary.openStatus() != Acad::eOk || dictionary->getAt(name, group) != Acad::eOk)
        return {};
    return group;
}

std::optional<AcDbObjectIdArray> groupMembers(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbGroup> group(id);
    if (group.openStatus() != Acad::eOk)
        return std::nullopt;
    AcDbObjectIdArray members;
    group->allEntityIds(members);
    return members;
}

std::optional<AcDbObjectIdArray> usableMembers(const AcDbObjectIdArray& ids, const AcDbDatabase* drawing) {
    std::unordered_set<AcDbObjectId> seen;
    AcDbObjectIdArray usable;
    for (const AcDbObjectId id : ids) {
        if (id.isNull() || id.database() != drawing || !seen.insert(id).second)
            continue;
        const AcDbEntityPointer entity(id, AcDb::kForWrite, false, kOnLockedLayers);
        if (isTemporary(entity.openStatus()))
            return std::nullopt;
        if (entity.openStatus() == Acad::eOk)
            usable.append(id);
    }
    return usable;
}

bool canBeChanged(AcDbObjectId object) {
    return AcDbObjectPointer<AcDbObject>(object, AcDb::kForWrite, false, kOnLockedLayers).openStatus() ==
           Acad::eOk;
}

bool canBeDeleted(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbGroup> group(id, AcDb::kForWrite);
    if (group.openStatus() != Acad::eOk)
        return false;
    // A group that is in no dictionary can't be deleted at all, and must not block changes.
    return !isTemporary(AcDbObjectPointer<AcDbObject>(group->ownerId(), AcDb::kForWrite).openStatus());
}

std::optional<CString> groupName(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbGroup> group(id);
    if (group.openStatus() != Acad::eOk)
        return std::nullopt;
    AcString name;
    return group->getName(name) == Acad::eOk ? std::optional(CString(name)) : std::nullopt;
}

bool isRouteGroupName(const CString& name) {
    return startsWithNoCase(zu::view(name), kNamedPrefix) || zu::view(name).starts_with(L"*A");
}

int groupNumber(const CString& name) {
    const int named = CString(name).MakeUpper().Find(kNamedPrefix);
    return _wtoi(named >= 0 ? name.Mid(named + 4, kNumberDigits) : name.Mid(2));
}

} // namespace zu
