#include "model/audit/audit.h"

#include <dbmain.h>
#include <zucomn/route.h>

#include <unordered_set>

namespace zu::app {

namespace {

/// What lies in model space and, from elsewhere, the members of groups.
std::vector<AcDbObjectId> auditedEntities(const DrawingFile& drawing) {
    std::vector<AcDbObjectId> entities = drawing.entities();
    std::unordered_set<AcDbObjectId> known(entities.begin(), entities.end());
    for (const AcDbObjectId group : drawing.groups()) {
        AcArray<AcDbObjectId> members;
        RootComn_GetGroupMember(group, members);
        for (const AcDbObjectId member : members)
            if (member.objectClass()->isDerivedFrom(AcDbEntity::desc()) && known.insert(member).second)
                entities.push_back(member);
    }
    return entities;
}

} // namespace

void Audit::add(AcDbObjectId id, std::string problem) {
    findings_.push_back({handleText(id), std::move(problem), false});
}

void Audit::add(AcDbObjectId id, std::string problem, const std::function<bool()>& repair) {
    Finding finding{handleText(id), std::move(problem), false};
    finding.repaired = repairing_ && repair();
    findings_.push_back(std::move(finding));
}

std::vector<Finding> auditRoutes(DrawingFile& drawing, bool repairing) {
    Audit audit(repairing);
    auditGroups(drawing, audit);
    const std::vector<AcDbObjectId> entities = auditedEntities(drawing);
    auditReactors(drawing, entities, audit);
    auditEmptyGroups(drawing, audit);
    auditMemberships(drawing, audit);
    auditRecords(drawing, entities, audit);
    auditConnectionPoints(drawing, audit);
    return audit.findings();
}

} // namespace zu::app
