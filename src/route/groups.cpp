#include <zucomn/model/groups.h>

#include "frame/text_view.h"
#include "group_access.h"

#include <zucomn/route.h>

#include <dbdict.h>
#include <dbgroup.h>
#include <dbmain.h>
#include <dbobjptr.h>

#include <unordered_set>

namespace zucomn {

std::optional<Group> readGroup(AcDbObjectId id) {
    const auto members = zu::groupMembers(id);
    if (!members)
        return std::nullopt;
    const CString name = zu::groupName(id).value_or(CString());
    Group group{id, std::wstring(zu::view(name)), zu::groupNumber(name), 0, zu::isRouteGroupName(name), {}};
    RootComn_GetRootKind2(id, &group.kind);
    group.members.assign(members->begin(), members->end());
    return group;
}

std::vector<AcDbObjectId> groupsOf(const AcDbDatabase& drawing) {
    const AcDbObjectPointer<AcDbDictionary> dictionary(drawing.groupDictionaryId());
    if (dictionary.openStatus() != Acad::eOk)
        return {};
    std::vector<AcDbObjectId> groups;
    std::unordered_set<AcDbObjectId> seen;
    for (const std::unique_ptr<AcDbDictionaryIterator> entry(dictionary->newIterator()); !entry->done();
         entry->next()) {
        const AcDbObjectId id = entry->objectId();
        if (id.objectClass()->isDerivedFrom(AcDbGroup::desc()) && seen.insert(id).second)
            groups.push_back(id);
    }
    return groups;
}

} // namespace zucomn
