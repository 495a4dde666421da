#include "findings.h"
#include "route/id_map.h"
#include "route/route_kinds.h"

#include <zucomn/route.h>

#include <algorithm>
#include <map>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace zu {

namespace {

/// A route group that loses members. Its kind is that of the first member that has one.
class ShrinkingGroup {
public:
    explicit ShrinkingGroup(const zucomn::Group& group)
        : group_(group), kinds_(group.members.size(), -1), decisive_(kinds_.size()) {}

    /// Without their kinds the group has none.
    void readKinds() {
        for (std::size_t i = 0; i < kinds_.size(); ++i)
            RootComn_GetBlockRootKind(group_.members[i], &kinds_[i]);
        decisive_ = 0;
        findKind();
    }

    [[nodiscard]] const zucomn::Group& group() const { return group_; }
    [[nodiscard]] int kind() const { return decisive_ < kinds_.size() ? kinds_[decisive_] : 0; }
    [[nodiscard]] bool isEmpty() const { return removed_.size() == kinds_.size(); }
    [[nodiscard]] bool has(AcDbObjectId member) const { return !removed_.contains(member); }
    [[nodiscard]] int kindOfMember(std::size_t place) const { return kinds_[place]; }

    /// Returns whether removing the member changes the kind.
    bool remove(AcDbObjectId member) {
        const int before = kind();
        removed_.insert(member);
        findKind();
        return kind() != before;
    }

private:
    void findKind() {
        while (decisive_ < kinds_.size() && (kinds_[decisive_] <= 0 || !has(group_.members[decisive_])))
            ++decisive_;
    }

    const zucomn::Group& group_;
    std::vector<int> kinds_;
    std::size_t decisive_;
    std::unordered_set<AcDbObjectId> removed_;
};

class MembershipAudit {
public:
    MembershipAudit(const std::vector<zucomn::Group>& groups, RouteAudit& audit) : audit_(audit) {
        for (const zucomn::Group& group : groups)
            if (group.isRouteGroup)
                groups_.emplace_back(group);
        findSharedMembers();
        for (std::size_t i = 0; i < elements_.size(); ++i)
            for (const ShrinkingGroup* const group : groupsOf_.at(elements_[i]))
                shared_[group].push_back(i);
    }

    /// Removing a member can change the group's kind; repeats for the other members of such groups until
    /// stable.
    void run() {
        for (const AcDbObjectId element : elements_)
            resolve(element);
        while (!changed_.empty())
            for (const std::size_t i : membersOfChanged())
                resolve(elements_[i]);
        for (const ShrinkingGroup& group : groups_)
            if (audit_.isRepairing() && group.isEmpty())
                RootComn_DelGroup(group.group().id);
    }

private:
    using Groups = std::vector<ShrinkingGroup*>;

    void findSharedMembers() {
        IdMap<bool> members;
        std::unordered_set<AcDbObjectId> shared;
        for (const ShrinkingGroup& group : groups_)
            for (const AcDbObjectId member : group.group().members)
                if (!members.tryEmplace(member).second)
                    shared.insert(member);
        if (shared.empty())
            return;
        for (ShrinkingGroup& group : groups_)
            group.readKinds();
        // Elements that decide the kind of their group come first: the others depend on the result.
        collectMembers(shared, [](int kind) { return kind > 0; });
        collectMembers(shared, [](int kind) { return kind <= 0; });
    }

    template <typename Takes>
    void collectMembers(const std::unordered_set<AcDbObjectId>& shared, Takes takes) {
        for (ShrinkingGroup& group : groups_) {
            const std::vector<AcDbObjectId>& members = group.group().members;
            for (std::size_t i = 0; i < members.size(); ++i) {
                if (!takes(group.kindOfMember(i)) || !shared.contains(members[i]))
                    continue;
                Groups& of = groupsOf_[members[i]];
                if (of.empty())
                    elements_.push_back(members[i]);
                of.push_back(&group);
            }
        }
    }

    /// The members that changed groups share with others, in the order of the elements.
    std::set<std::size_t> membersOfChanged() {
        std::set<std::size_t> members;
        for (const ShrinkingGroup* const group : std::exchange(changed_, {}))
            for (const std::size_t i : shared_.at(group))
                if (group->has(elements_[i]))
                    members.insert(i);
        return members;
    }

    void resolve(AcDbObjectId element) {
        std::map<int, Groups> byKind;
        for (ShrinkingGroup* const group : groupsOf_.at(element))
            if (group->has(element) && isRouteKind(group->kind()))
                byKind[group->kind()].push_back(group);
        for (const auto& [kind, groups] : byKind)
            if (groups.size() > 1)
                report(element, kind, groups);
    }

    /// The lowest-numbered group keeps the element.
    void report(AcDbObjectId element, int kind, Groups groups) {
        const auto isLower = [](const ShrinkingGroup* a, const ShrinkingGroup* b) {
            return a->group().number < b->group().number;
        };
        std::stable_sort(groups.begin(), groups.end(), isLower);
        std::wstring names = groups.front()->group().name;
        bool isDone = true;
        for (auto group = std::next(groups.begin()); group != groups.end(); ++group) {
            names += L", " + (*group)->group().name;
            if ((*group)->remove(element))
                changed_.insert(*group);
            isDone =
                audit_.isRepairing() && RootComn_DelGroupMember((*group)->group().id, element) == 0 && isDone;
        }
        audit_.add(element, zucomn::RouteFault::membership,
                   L"is in several route groups of kind " + std::to_wstring(kind) + L": " + names, isDone);
    }

    RouteAudit& audit_;
    std::vector<ShrinkingGroup> groups_;
    std::unordered_map<AcDbObjectId, Groups> groupsOf_;
    std::vector<AcDbObjectId> elements_; ///< The members of more than one route group.
    std::unordered_map<const ShrinkingGroup*, std::vector<std::size_t>> shared_; ///< Indexes in elements_.
    std::unordered_set<const ShrinkingGroup*> changed_;
};

} // namespace

void auditMemberships(const std::vector<zucomn::Group>& groups, RouteAudit& audit) {
    MembershipAudit(groups, audit).run();
}

} // namespace zu
