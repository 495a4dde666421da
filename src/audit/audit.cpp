#include <zucomn/model/audit.h>

#include "network.h"
#include "route/group_access.h"

#include <zucomn/model/elements.h>
#include <zucomn/model/groups.h>
#include <zucomn/route.h>

#include <dbmain.h>

#include <unordered_set>

namespace zucomn {

namespace {

/// The entities of model space and, from elsewhere, the members of groups.
std::vector<AcDbObjectId> auditedEntities(const AcDbDatabase& drawing) {
    std::vector<AcDbObjectId> entities = modelSpaceEntities(drawing);
    std::unordered_set<AcDbObjectId> known(entities.begin(), entities.end());
    for (const AcDbObjectId group : groupsOf(drawing))
        for (const AcDbObjectId member : zu::groupMembers(group).value_or(AcDbObjectIdArray()))
            if (member.objectClass()->isDerivedFrom(AcDbEntity::desc()) && known.insert(member).second)
                entities.push_back(member);
    return entities;
}

void auditEmptyGroups(const AcDbDatabase& drawing, zu::RouteAudit& audit) {
    for (const AcDbObjectId id : groupsOf(drawing)) {
        int size = -1;
        if (RootComn_GetGroupSize(id, &size) == 0 && size == 0)
            audit.add(id, RouteFault::emptyGroup, L"the group has no members",
                      audit.isRepairing() && RootComn_DelGroup(id) == 0);
    }
}

} // namespace

std::vector<RouteFinding> auditRoutes(const AcDbDatabase& drawing, bool repairing) {
    zu::RouteAudit audit(repairing);
    const std::vector<AcDbObjectId> entities = auditedEntities(drawing);
    auditEmptyGroups(drawing, audit);
    zu::auditMemberships(drawing, audit);
    const auto elements = zu::auditRecords(entities, audit);
    const zu::Network network(zu::auditDuplicates(modelSpaceReferences(drawing), audit));
    zu::auditConnectionPoints(network, audit);
    zu::auditJoints(network, elements, audit);
    zu::auditReach(drawing, network, audit);
    return audit.takeFindings();
}

} // namespace zucomn
