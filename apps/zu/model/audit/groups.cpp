#include "model/audit/audit.h"
#include "model/audit/change.h"
#include "model/group.h"
#include "text.h"

#include <dbdict.h>
#include <dbgroup.h>
#include <zucomn/dbservices.h>
#include <zucomn/route.h>

namespace zu::app {

namespace {

void auditDictionary(AcDbDatabase& database, Audit& audit) {
    const AcDbObjectId id = database.groupDictionaryId();
    std::vector<std::wstring> dangling;
    std::vector<AcDbDictionaryIterator::Entry> entries;
    if (const AcDbObjectPointer<AcDbDictionary> dictionary(id); dictionary.openStatus() == Acad::eOk) {
        dangling = dictionary->danglingNames();
        entries = dictionary->entries();
    }
    for (const std::wstring& name : dangling)
        audit.add(id, "the group " + narrow(name) + " is not in the drawing", [&] {
            return change<AcDbDictionary>(id, [&](AcDbDictionary& d) { return d.remove(name.c_str()); });
        });
    for (const auto& entry : entries)
        if (!isGroup(entry.id))
            audit.add(entry.id,
                      "stands in the group dictionary as " + narrow(entry.name) + " but is no group");
}

void auditSurplusEntries(AcDbDatabase& database, AcDbObjectId id, Audit& audit) {
    std::vector<AcDbHandle> surplus;
    if (const AcDbObjectPointer<AcDbGroup> group(id); group.openStatus() == Acad::eOk)
        surplus = group->surplusEntries();
    if (surplus.empty())
        return;
    const bool removed = audit.isRepairing() &&
                         change<AcDbGroup>(id, [](AcDbGroup& group) { return group.removeSurplusEntries(); });
    for (const AcDbHandle handle : surplus) {
        AcDbObjectId member;
        const bool isThere = database.getAcDbObjectId(member, false, handle) == Acad::eOk;
        audit.add(id,
                  "member " + handleText(handle) + (isThere ? " is listed twice" : " is not in the drawing"),
                  [removed] { return removed; });
    }
}

void auditMembers(AcDbObjectId id, Audit& audit) {
    AcArray<AcDbObjectId> members;
    RootComn_GetGroupMember(id, members);
    for (const AcDbObjectId member : members) {
        const auto takeOut = [&] { return RootComn_DelGroupMember(id, member) == 0; };
        if (ZuComn_ExistenceIdCheck(member) != 0)
            audit.add(id, "member " + handleText(member) + " is erased", takeOut);
        else if (!member.objectClass()->isDerivedFrom(AcDbEntity::desc()))
            audit.add(id, "member " + handleText(member) + " is no entity", takeOut);
    }
}

} // namespace

void auditGroups(DrawingFile& drawing, Audit& audit) {
    auditDictionary(drawing.database(), audit);
    for (const AcDbObjectId id : drawing.groups()) {
        auditSurplusEntries(drawing.database(), id, audit);
        auditMembers(id, audit);
    }
}

void auditEmptyGroups(const DrawingFile& drawing, Audit& audit) {
    for (const AcDbObjectId id : drawing.groups()) {
        int size = -1;
        if (RootComn_GetGroupSize(id, &size) == 0 && size == 0)
            audit.add(id, "the group has no members", [id] { return RootComn_DelGroup(id) == 0; });
    }
}

} // namespace zu::app
