#include "audit_findings.h"
#include "dbdict.h"
#include "dbgroup.h"
#include "zuhost/members.h"

#include <unordered_set>

namespace zuhost {

namespace {

bool isGroup(AcDbObjectId id) {
    return id.objectClass()->isDerivedFrom(AcDbGroup::desc());
}

void auditDictionary(DatabaseAudit& audit) {
    const AcDbObjectId id = audit.database().groupDictionaryId();
    std::vector<std::wstring> dangling;
    std::vector<DictionaryEntry> entries;
    if (const AcDbObjectPointer<AcDbDictionary> dictionary(id); dictionary.openStatus() == Acad::eOk) {
        dangling = danglingNames(*dictionary.object());
        entries = entriesOf(*dictionary.object());
    }
    for (const std::wstring& name : dangling) {
        const bool removed =
            audit.repair<AcDbDictionary>(id, [&](AcDbDictionary& d) { return d.remove(name.c_str()); });
        audit.add(id, DatabaseFault::dictionaryEntry, L"the group " + name + L" is not in the drawing",
                  removed);
    }
    for (const auto& entry : entries)
        if (!isGroup(entry.id))
            audit.add(entry.id, DatabaseFault::dictionaryEntry,
                      L"stands in the group dictionary as " + entry.name + L" but is no group");
}

void auditSurplusEntries(AcDbObjectId id, DatabaseAudit& audit) {
    std::vector<AcDbHandle> surplus;
    if (const AcDbObjectPointer<AcDbGroup> group(id); group.openStatus() == Acad::eOk)
        surplus = surplusEntries(*group.object());
    if (surplus.empty())
        return;
    const bool removed =
        audit.repair<AcDbGroup>(id, [](AcDbGroup& group) { return removeSurplusEntries(group); });
    for (const AcDbHandle handle : surplus) {
        AcDbObjectId member;
        const bool isThere = audit.database().getAcDbObjectId(member, false, handle) == Acad::eOk;
        audit.add(id, DatabaseFault::groupMember,
                  L"member " + handleText(handle) +
                      (isThere ? L" is listed twice" : L" is not in the drawing"),
                  removed);
    }
}

/// What is wrong with a member; null for a live entity.
const wchar_t* memberProblem(AcDbObjectId member) {
    const AcDbObjectPointer<AcDbObject> object(member);
    if (object.openStatus() != Acad::eOk)
        return L" is erased";
    return member.objectClass()->isDerivedFrom(AcDbEntity::desc()) ? nullptr : L" is no entity";
}

void auditMembers(AcDbObjectId id, DatabaseAudit& audit) {
    for (const AcDbObjectId member : membersOf(id)) {
        const wchar_t* const problem = memberProblem(member);
        if (problem == nullptr)
            continue;
        const bool removed =
            audit.repair<AcDbGroup>(id, [member](AcDbGroup& group) { return group.remove(member); });
        audit.add(id, DatabaseFault::groupMember, L"member " + handleText(member.handle()) + problem,
                  removed);
    }
}

} // namespace

std::wstring handleText(AcDbHandle handle) {
    ACHAR buffer[17];
    handle.getIntoAsciiBuffer(buffer);
    return buffer;
}

std::vector<AcDbObjectId> dictionaryGroups(const AcDbDatabase& database) {
    const AcDbObjectPointer<AcDbDictionary> dictionary(database.groupDictionaryId());
    if (dictionary.openStatus() != Acad::eOk)
        return {};
    std::vector<AcDbObjectId> groups;
    for (const auto& entry : entriesOf(*dictionary.object()))
        if (isGroup(entry.id))
            groups.push_back(entry.id);
    return groups;
}

std::vector<AcDbObjectId> membersOf(AcDbObjectId group) {
    const AcDbObjectPointer<AcDbGroup> object(group);
    if (object.openStatus() != Acad::eOk)
        return {};
    AcDbObjectIdArray members;
    object->allEntityIds(members);
    return {members.begin(), members.end()};
}

std::vector<GroupMembers> groupsWithMembers(const AcDbDatabase& database) {
    std::vector<GroupMembers> groups;
    std::unordered_set<AcDbObjectId> known;
    for (const AcDbObjectId group : dictionaryGroups(database))
        if (known.insert(group).second)
            groups.push_back({group, membersOf(group)});
    return groups;
}

void auditGroups(DatabaseAudit& audit) {
    auditDictionary(audit);
    for (const AcDbObjectId id : dictionaryGroups(audit.database())) {
        auditSurplusEntries(id, audit);
        auditMembers(id, audit);
    }
}

} // namespace zuhost
