#include "model/audit/audit.h"
#include "model/audit/change.h"
#include "model/group.h"

#include <dbgroup.h>
#include <zucomn/dbservices.h>

#include <unordered_map>
#include <unordered_set>

namespace zu::app {

namespace {

/// The groups of the drawing and in which of them each entity is.
class Memberships {
public:
    explicit Memberships(const DrawingFile& drawing) {
        for (const AcDbObjectId id : drawing.groups())
            if (known_.insert(id).second)
                groups_.push_back(readGroup(id));
        for (std::size_t i = 0; i < groups_.size(); ++i)
            for (const AcDbObjectId member : groups_[i].members)
                groupsOf_[member].push_back(i);
    }

    [[nodiscard]] bool hasGroup(AcDbObjectId id) const { return known_.contains(id); }

    [[nodiscard]] std::vector<const Group*> groupsOf(AcDbObjectId member) const {
        std::vector<const Group*> found;
        if (const auto of = groupsOf_.find(member); of != groupsOf_.end())
            for (const std::size_t i : of->second)
                found.push_back(&groups_[i]);
        return found;
    }

private:
    std::vector<Group> groups_;
    std::unordered_set<AcDbObjectId> known_;
    std::unordered_map<AcDbObjectId, std::vector<std::size_t>> groupsOf_;
};

/// The persistent reactors of an entity that are groups.
std::vector<AcDbObjectId> reactorGroups(AcDbObjectId entity) {
    AcArray<AcDbObjectId> groups;
    ZuComn_GetGroupID(entity, groups);
    return {groups.begin(), groups.end()};
}

bool addReactors(AcDbObjectId entity, const std::vector<AcDbObjectId>& reactors) {
    return change<AcDbObject>(entity, [&](AcDbObject& o) { return o.addPersistentReactors(reactors); });
}

bool removeReactors(AcDbObjectId entity, const std::unordered_set<AcDbObjectId>& reactors) {
    return change<AcDbObject>(entity, [&](AcDbObject& o) { return o.removePersistentReactors(reactors); });
}

void auditSurplusReactors(AcDbObjectId entity, Audit& audit) {
    std::vector<AcDbHandle> surplus;
    if (const AcDbObjectPointer<AcDbObject> object(entity); object.openStatus() == Acad::eOk)
        surplus = object->surplusReactors();
    if (surplus.empty())
        return;
    std::string handles;
    for (const AcDbHandle handle : surplus)
        handles += ' ' + handleText(handle);
    audit.add(entity, "names reactors that are not in the drawing, or twice:" + handles, [entity] {
        return change<AcDbObject>(entity, [](AcDbObject& object) { return object.removeSurplusReactors(); });
    });
}

/// A group that the dictionary doesn't have is no group: its members must not name it as theirs.
bool eraseStray(AcDbObjectId id) {
    return change<AcDbGroup>(id, [](AcDbGroup& group) {
        const Acad::ErrorStatus status = group.clear();
        return status == Acad::eOk ? group.erase() : status;
    });
}

class ReactorAudit {
public:
    ReactorAudit(const DrawingFile& drawing, Audit& audit) : memberships_(drawing), audit_(audit) {}

    void auditEntity(AcDbObjectId entity) {
        auditSurplusReactors(entity, audit_);
        const std::vector<const Group*> listing = memberships_.groupsOf(entity);
        const std::vector<AcDbObjectId> named = reactorGroups(entity);
        auditUnlisted(entity, named, listing);
        auditUnnamed(entity, named, listing);
    }

    void auditStrays() {
        for (const AcDbObjectId id : strays_)
            audit_.add(id, "the group is not in the group dictionary", [id] { return eraseStray(id); });
    }

private:
    // Reactors are changed at once: entities may have any number of them.
    void auditUnlisted(AcDbObjectId entity, const std::vector<AcDbObjectId>& named,
                       const std::vector<const Group*>& listing) {
        std::unordered_set<AcDbObjectId> unlisted(named.begin(), named.end());
        for (const Group* const group : listing)
            unlisted.erase(group->id);
        const bool removed = audit_.isRepairing() && !unlisted.empty() && removeReactors(entity, unlisted);
        for (const AcDbObjectId group : named)
            if (unlisted.contains(group))
                reportUnlisted(entity, group, removed);
    }

    void auditUnnamed(AcDbObjectId entity, const std::vector<AcDbObjectId>& named,
                      const std::vector<const Group*>& listing) {
        const std::unordered_set<AcDbObjectId> known(named.begin(), named.end());
        std::vector<AcDbObjectId> missing;
        for (const Group* const group : listing)
            if (!known.contains(group->id))
                missing.push_back(group->id);
        const bool added = audit_.isRepairing() && !missing.empty() && addReactors(entity, missing);
        for (const Group* const group : listing)
            if (!known.contains(group->id))
                audit_.add(entity, "is a member of group " + group->name + " without naming it",
                           [added] { return added; });
    }

    void reportUnlisted(AcDbObjectId entity, AcDbObjectId group, bool removed) {
        const bool isStray = !memberships_.hasGroup(group);
        if (isStray && knownStrays_.insert(group).second)
            strays_.push_back(group);
        audit_.add(entity,
                   "names the group " + handleText(group) +
                       (isStray ? ", which is not in the group dictionary" : ", which doesn't list it"),
                   [removed] { return removed; });
    }

    Memberships memberships_;
    Audit& audit_;
    std::vector<AcDbObjectId> strays_;
    std::unordered_set<AcDbObjectId> knownStrays_;
};

} // namespace

void auditReactors(const DrawingFile& drawing, const std::vector<AcDbObjectId>& entities, Audit& audit) {
    ReactorAudit reactors(drawing, audit);
    for (const AcDbObjectId entity : entities)
        reactors.auditEntity(entity);
    reactors.auditStrays();
}

} // namespace zu::app
