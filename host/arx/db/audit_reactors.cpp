#include "audit_findings.h"
#include "dbgroup.h"
#include "zuhost/members.h"
#include "zuhost/names.h"
#include "zuhost/reactor_ids.h"

#include <algorithm>
#include <span>
#include <unordered_set>
#include <utility>

namespace zuhost {

namespace {

/// The groups of the drawing, and which of them list an entity.
class Memberships {
public:
    explicit Memberships(const std::vector<GroupMembers>& groups) {
        std::vector<std::pair<AcDbObjectId, AcDbObjectId>> pairs;
        for (const GroupMembers& group : groups) {
            known_.insert(group.group);
            for (const AcDbObjectId member : group.members)
                pairs.emplace_back(member, group.group);
        }
        std::ranges::stable_sort(pairs, {}, [](const auto& pair) { return pair.first; });
        for (const auto& [member, group] : pairs) {
            members_.push_back(member);
            groups_.push_back(group);
        }
    }

    [[nodiscard]] bool hasGroup(AcDbObjectId id) const { return known_.contains(id); }

    [[nodiscard]] std::span<const AcDbObjectId> groupsOf(AcDbObjectId member) const {
        const auto [first, last] = std::equal_range(members_.begin(), members_.end(), member);
        return std::span(groups_).subspan(static_cast<std::size_t>(first - members_.begin()),
                                          static_cast<std::size_t>(last - first));
    }

private:
    std::unordered_set<AcDbObjectId> known_;
    std::vector<AcDbObjectId> members_; ///< Ascending; once for each group.
    std::vector<AcDbObjectId> groups_;  ///< Of each of the members, in the order of the groups.
};

bool isLiveGroup(AcDbObjectId id) {
    return !id.isNull() && id.objectClass()->isDerivedFrom(AcDbGroup::desc()) &&
           AcDbObjectPointer<AcDbGroup>(id).openStatus() == Acad::eOk;
}

std::wstring groupName(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbGroup> group(id);
    return group.openStatus() == Acad::eOk ? zuhost::groupName(*group.object()) : std::wstring();
}

void auditSurplusReactors(AcDbObjectId entity, DatabaseAudit& audit) {
    std::wstring handles;
    if (const AcDbObjectPointer<AcDbObject> object(entity); object.openStatus() == Acad::eOk)
        for (const AcDbHandle handle : surplusReactors(*object.object()))
            handles += L' ' + handleText(handle);
    const bool removed =
        audit.repair<AcDbObject>(entity, [](AcDbObject& object) { return removeSurplusReactors(object); });
    audit.add(entity, DatabaseFault::reactor,
              L"names reactors that are not in the drawing, or twice:" + handles, removed);
}

class ReactorAudit {
public:
    ReactorAudit(const std::vector<GroupMembers>& groups, DatabaseAudit& audit)
        : memberships_(groups), audit_(audit) {}

    void auditEntity(AcDbObjectId entity) {
        if (!readReactorGroups(entity))
            auditSurplusReactors(entity, audit_);
        const std::span<const AcDbObjectId> listing = memberships_.groupsOf(entity);
        if (std::equal(named_.begin(), named_.end(), listing.begin(), listing.end()))
            return;
        auditUnlisted(entity, named_, listing);
        auditUnnamed(entity, named_, listing);
    }

    /// Members of a group that is in no dictionary must not name it, so it is emptied before it is erased.
    void auditStrays() {
        for (const AcDbObjectId id : strays_) {
            const bool erased = audit_.repair<AcDbGroup>(id, [](AcDbGroup& group) {
                const Acad::ErrorStatus status = group.clear();
                return status == Acad::eOk ? group.erase() : status;
            });
            audit_.add(id, DatabaseFault::strayGroup, L"the group is not in the group dictionary", erased);
        }
    }

private:
    /// Reads the groups among the persistent reactors. Returns false when there are surplus entries.
    bool readReactorGroups(AcDbObjectId entity) {
        named_.clear();
        const AcDbObjectPointer<AcDbObject> object(entity);
        const bool isClean =
            object.openStatus() != Acad::eOk || readPersistentReactors(*object.object(), named_);
        std::erase_if(named_, [](AcDbObjectId id) { return !isLiveGroup(id); });
        return isClean;
    }

    // Reactors are changed in one pass: entities may have any number of them.
    void auditUnlisted(AcDbObjectId entity, const std::vector<AcDbObjectId>& named,
                       std::span<const AcDbObjectId> listing) {
        if (named.empty())
            return;
        std::unordered_set<AcDbObjectId> unlisted(named.begin(), named.end());
        for (const AcDbObjectId group : listing)
            unlisted.erase(group);
        const bool removed = !unlisted.empty() && audit_.repair<AcDbObject>(entity, [&](AcDbObject& object) {
            return removePersistentReactors(object, unlisted);
        });
        for (const AcDbObjectId group : named)
            if (unlisted.contains(group))
                reportUnlisted(entity, group, removed);
    }

    void auditUnnamed(AcDbObjectId entity, const std::vector<AcDbObjectId>& named,
                      std::span<const AcDbObjectId> listing) {
        std::vector<AcDbObjectId> missing(listing.begin(), listing.end());
        if (!named.empty()) {
            const std::unordered_set<AcDbObjectId> known(named.begin(), named.end());
            std::erase_if(missing, [&known](AcDbObjectId group) { return known.contains(group); });
        }
        const bool added = !missing.empty() && audit_.repair<AcDbObject>(entity, [&](AcDbObject& object) {
            return addPersistentReactors(object, missing);
        });
        for (const AcDbObjectId group : missing)
            audit_.add(entity, DatabaseFault::reactor,
                       L"is a member of group " + groupName(group) + L" without naming it", added);
    }

    void reportUnlisted(AcDbObjectId entity, AcDbObjectId group, bool removed) {
        const bool isStray = !memberships_.hasGroup(group);
        if (isStray && knownStrays_.insert(group).second)
            strays_.push_back(group);
        audit_.add(entity, DatabaseFault::reactor,
                   L"names the group " + handleText(group.handle()) +
                       (isStray ? L", which is not in the group dictionary" : L", which doesn't list it"),
                   removed);
    }

    Memberships memberships_;
    DatabaseAudit& audit_;
    std::vector<AcDbObjectId> named_; ///< The groups that the current entity names, each once.
    std::vector<AcDbObjectId> strays_;
    std::unordered_set<AcDbObjectId> knownStrays_;
};

} // namespace

void auditReactors(const std::vector<AcDbObjectId>& entities, const std::vector<GroupMembers>& groups,
                   DatabaseAudit& audit) {
    ReactorAudit reactors(groups, audit);
    for (const AcDbObjectId entity : entities)
        reactors.auditEntity(entity);
    reactors.auditStrays();
}

} // namespace zuhost
