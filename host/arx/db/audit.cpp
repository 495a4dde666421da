#include "zuhost/audit.h"

#include "audit_findings.h"
#include "database_core.h"
#include "dbgroup.h"
#include "dbsymtb.h"
#include "object_access.h"
#include "zuhost/members.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace zuhost {

namespace {

constexpr int kApplication = 1001;

/// The entities of model space and, from elsewhere, the members of groups.
std::vector<AcDbObjectId> auditedEntities(const AcDbDatabase& database,
                                          const std::vector<GroupMembers>& groups) {
    AcDbObjectId spaceId;
    if (const AcDbObjectPointer<AcDbBlockTable> blocks(database.blockTableId());
        blocks.openStatus() == Acad::eOk)
        blocks->getAt(ACDB_MODEL_SPACE, spaceId);
    std::vector<AcDbObjectId> entities;
    if (const AcDbObjectPointer<AcDbBlockTableRecord> space(spaceId); space.openStatus() == Acad::eOk)
        entities = entityIds(*space.object());
    std::vector<AcDbObjectId> known = entities;
    std::sort(known.begin(), known.end());
    std::unordered_set<AcDbObjectId> others;
    for (const GroupMembers& group : groups)
        for (const AcDbObjectId member : group.members)
            if (member.objectClass()->isDerivedFrom(AcDbEntity::desc()) &&
                !std::binary_search(known.begin(), known.end(), member) && others.insert(member).second)
                entities.push_back(member);
    return entities;
}

/// The applications that the entities name, each once, in the order of the entities.
std::vector<std::wstring> namedApplications(const std::vector<AcDbObjectId>& entities,
                                            const AcDbDatabase& database) {
    std::vector<std::wstring> names;
    std::unordered_set<std::string_view> known;
    for (const AcDbObjectId id : entities) {
        const AcDbObjectPointer<AcDbObject> object(id);
        if (object.openStatus() != Acad::eOk)
            continue;
        for (const TagRef& tag : ObjectAccess::tags(*object).extendedData())
            if (tag.code == kApplication && known.insert(tag.text).second)
                names.push_back(coreOf(database).document->decode(tag.text));
    }
    return names;
}

} // namespace

void auditApplications(const std::vector<AcDbObjectId>& entities, DatabaseAudit& audit) {
    AcDbDatabase& database = audit.database();
    for (const std::wstring& name : namedApplications(entities, database)) {
        AcDbObjectPointer<AcDbRegAppTable> table(database.regAppTableId());
        if (table.openStatus() != Acad::eOk)
            return;
        if (table->has(name.c_str()))
            continue;
        table.close();
        audit.add(database.regAppTableId(), DatabaseFault::unregisteredApplication,
                  L"application " + name + L" is not registered",
                  audit.isRepairing() && acdbRegApp(&database, name.c_str()) == Acad::eOk);
    }
}

std::wstring_view faultCode(DatabaseFault fault) {
    constexpr std::array<std::wstring_view, kDatabaseFaults> kCodes{
        L"dictionary-entry", L"group-member", L"reactor", L"stray-group", L"unregistered-application"};
    return kCodes[static_cast<std::size_t>(fault)];
}

std::vector<DatabaseFinding> auditDatabase(AcDbDatabase& database, bool repairing) {
    DatabaseAudit audit(database, repairing);
    auditGroups(audit);
    const std::vector<GroupMembers> groups = groupsWithMembers(database);
    const std::vector<AcDbObjectId> entities = auditedEntities(database, groups);
    auditReactors(entities, groups, audit);
    auditApplications(entities, audit);
    return audit.takeFindings();
}

} // namespace zuhost
