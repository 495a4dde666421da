#include "model/audit/audit.h"
#include "model/group.h"

#include <zucomn/model/elements.h>
#include <zucomn/route.h>

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>

namespace zu::app {

namespace {

/// A route group that loses members. Its kind is that of the first member that has one.
class ShrinkingGroup {
public:
    explicit ShrinkingGroup(Group group) : group_(std::move(group)) {
        for (const AcDbObjectId member : group_.members) {
            int& kind = kinds_.emplace_back(-1);
            RootComn_GetBlockRootKind(member, &kind);
        }
        findKind();
    }

    [[nodiscard]] const Group& group() const { return group_; }
    [[nodiscard]] int kind() const { return decisive_ < kinds_.size() ? kinds_[decisive_] : 0; }
    [[nodiscard]] bool isEmpty() const { return left_.size() == kinds_.size(); }
    [[nodiscard]] bool has(AcDbObjectId member) const { return !left_.contains(member); }
    [[nodiscard]] int kindOfMember(std::size_t place) const { return kinds_[place]; }

    void takeOut(AcDbObjectId member) {
        left_.insert(member);
        findKind();
    }

private:
    void findKind() {
        while (decisive_ < kinds_.size() && (kinds_[decisive_] <= 0 || !has(group_.members[decisive_])))
            ++decisive_;
    }

    Group group_;
    std::vector<int> kinds_;
    std::size_t decisive_ = 0;
    std::unordered_set<AcDbObjectId> left_;
};

class MembershipAudit {
public:
    MembershipAudit(const DrawingFile& drawing, Audit& audit) : audit_(audit) {
        for (const AcDbObjectId id : drawing.groups())
            if (Group group = readGroup(id); group.isRouteGroup)
                groups_.emplace_back(std::move(group));
        // Those without a kind come last: they settle among the groups as the others leave them.
        collectMembers([](int kind) { return kind > 0; });
        collectMembers([](int kind) { return kind <= 0; });
    }

    /// Who leaves a group may change its kind, so that others are in two of a kind now.
    void run() {
        while (settleAll()) {
        }
        for (const ShrinkingGroup& group : groups_)
            if (audit_.isRepairing() && group.isEmpty())
                RootComn_DelGroup(group.group().id);
    }

private:
    using Groups = std::vector<ShrinkingGroup*>;

    template <typename Takes>
    void collectMembers(Takes takes) {
        for (ShrinkingGroup& group : groups_) {
            const std::vector<AcDbObjectId>& members = group.group().members;
            for (std::size_t i = 0; i < members.size(); ++i) {
                if (!takes(group.kindOfMember(i)))
                    continue;
                Groups& of = groupsOf_[members[i]];
                if (of.empty())
                    elements_.push_back(members[i]);
                of.push_back(&group);
            }
        }
    }

    bool settleAll() {
        bool settled = false;
        for (const AcDbObjectId element : elements_)
            settled = settle(element) || settled;
        return settled;
    }

    bool settle(AcDbObjectId element) {
        std::map<int, Groups> byKind;
        for (ShrinkingGroup* const group : groupsOf_.at(element))
            if (group->has(element) && zucomn::isRouteKind(group->kind()))
                byKind[group->kind()].push_back(group);
        bool settled = false;
        for (const auto& [kind, groups] : byKind) {
            if (groups.size() < 2)
                continue;
            report(element, kind, groups);
            settled = true;
        }
        return settled;
    }

    /// The lowest-numbered group keeps the element.
    void report(AcDbObjectId element, int kind, Groups groups) {
        const auto isLower = [](const ShrinkingGroup* a, const ShrinkingGroup* b) {
            return a->group().number < b->group().number;
        };
        std::stable_sort(groups.begin(), groups.end(), isLower);
        std::string names = groups.front()->group().name;
        bool done = true;
        for (auto group = std::next(groups.begin()); group != groups.end(); ++group) {
            names += ", " + (*group)->group().name;
            (*group)->takeOut(element);
            done =
                audit_.isRepairing() && RootComn_DelGroupMember((*group)->group().id, element) == 0 && done;
        }
        audit_.add(element, "is in several route groups of kind " + std::to_string(kind) + ": " + names,
                   [done] { return done; });
    }

    Audit& audit_;
    std::vector<ShrinkingGroup> groups_;
    std::unordered_map<AcDbObjectId, Groups> groupsOf_;
    std::vector<AcDbObjectId> elements_;
};

} // namespace

void auditMemberships(const DrawingFile& drawing, Audit& audit) {
    MembershipAudit(drawing, audit).run();
}

} // namespace zu::app
