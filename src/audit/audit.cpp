#include <zucomn/model/audit.h>

#include "network.h"
#include "route/id_map.h"

#include <zucomn/model/elements.h>
#include <zucomn/model/groups.h>
#include <zucomn/route.h>

#include <dbmain.h>

namespace zucomn {

namespace {

std::vector<Group> readGroups(const AcDbDatabase& drawing) {
    std::vector<Group> groups;
    for (const AcDbObjectId id : groupsOf(drawing))
        if (auto group = readGroup(id))
            groups.push_back(std::move(*group));
    return groups;
}

/// The members of groups that are no entities of model space.
std::vector<AcDbObjectId> otherMembers(const std::vector<Group>& groups,
                                       const std::vector<AcDbObjectId>& entities) {
    std::vector<AcDbObjectId> others;
    zu::IdMap<bool> known;
    for (const AcDbObjectId entity : entities)
        known.tryEmplace(entity);
    for (const Group& group : groups)
        for (const AcDbObjectId member : group.members)
            if (known.tryEmplace(member).second && member.objectClass()->isDerivedFrom(AcDbEntity::desc()))
                others.push_back(member);
    return others;
}

void auditEmptyGroups(const std::vector<Group>& groups, zu::RouteAudit& audit) {
    for (const Group& group : groups) {
        if (group.members.empty())
            audit.add(group.id, RouteFault::emptyGroup, L"the group has no members",
                      audit.isRepairing() && RootComn_DelGroup(group.id) == 0);
    }
}

} // namespace

std::vector<RouteFinding> auditRoutes(const AcDbDatabase& drawing, bool repairing) {
    zu::RouteAudit audit(repairing);
    const std::vector<AcDbObjectId> entities = modelSpaceEntities(drawing);
    std::vector<Group> groups = readGroups(drawing);
    const std::vector<AcDbObjectId> others = otherMembers(groups, entities);
    auditEmptyGroups(groups, audit);
    if (repairing)
        groups = readGroups(drawing);
    zu::auditMemberships(groups, audit);
    if (repairing)
        groups = readGroups(drawing);
    auto elements = zu::auditRecords(entities, audit);
    (void)zu::auditRecords(others, audit);
    zu::auditDuplicates(elements, audit);
    const zu::Network network(std::move(elements));
    zu::auditConnectionPoints(network, audit);
    zu::auditJoints(network, audit);
    zu::auditReach(groups, network, audit);
    return audit.takeFindings();
}

} // namespace zucomn
