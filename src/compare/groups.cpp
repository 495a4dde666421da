#include "differences.h"

#include <zucomn/model/groups.h>

#include <algorithm>
#include <optional>
#include <vector>

namespace zu {

namespace {

using zucomn::Group;

std::vector<Group> groupsIn(const AcDbDatabase& drawing) {
    std::vector<Group> groups;
    for (const AcDbObjectId id : zucomn::groupsOf(drawing))
        if (auto group = zucomn::readGroup(id))
            groups.push_back(std::move(*group));
    return groups;
}

/// Matches groups by name, the others by handle.
std::vector<std::optional<std::size_t>> matchGroups(const std::vector<Group>& before,
                                                    const std::vector<Group>& after) {
    std::vector<std::optional<std::size_t>> matches(after.size());
    std::vector<bool> isTaken(before.size(), false);
    const auto matchBy = [&](auto keyOf) {
        std::unordered_map<decltype(keyOf(before.front())), std::size_t> places;
        for (std::size_t i = before.size(); i-- > 0;)
            if (!isTaken[i])
                places.insert_or_assign(keyOf(before[i]), i);
        for (std::size_t i = 0; i < after.size(); ++i) {
            const auto found = places.find(keyOf(after[i]));
            if (matches[i] || found == places.end() || isTaken[found->second])
                continue;
            matches[i] = found->second;
            isTaken[found->second] = true;
        }
    };
    matchBy([](const Group& group) { return group.name; });
    matchBy([](const Group& group) { return group.id.handle().value(); });
    return matches;
}

zucomn::GroupChange changeOf(const Group& before, const Group& after, const EntityPairs& pairs) {
    zucomn::GroupChange change{after.name, before.name, {}, {}};
    const std::unordered_set<AcDbObjectId> now(after.members.begin(), after.members.end());
    std::unordered_set<AcDbObjectId> old;
    for (const AcDbObjectId member : before.members) {
        const AcDbObjectId named = pairs.named(member);
        if (old.insert(named).second && !now.contains(named))
            change.removed.push_back(named);
    }
    for (const AcDbObjectId member : after.members)
        if (!old.contains(member))
            change.added.push_back(member);
    return change;
}

} // namespace

void compareGroups(const AcDbDatabase& before, const AcDbDatabase& after, const EntityPairs& pairs,
                   zucomn::DrawingDifferences& differences) {
    const std::vector<Group> old = groupsIn(before);
    const std::vector<Group> now = groupsIn(after);
    const std::vector<std::optional<std::size_t>> matches = matchGroups(old, now);
    std::vector<bool> isKept(old.size(), false);
    for (std::size_t i = 0; i < now.size(); ++i) {
        if (!matches[i]) {
            differences.groups.push_back({now[i].name, now[i].name, now[i].members, {}});
            continue;
        }
        isKept[*matches[i]] = true;
        zucomn::GroupChange change = changeOf(old[*matches[i]], now[i], pairs);
        if (!change.added.empty() || !change.removed.empty() || change.name != change.nameBefore)
            differences.groups.push_back(std::move(change));
    }
    for (std::size_t i = 0; i < old.size(); ++i) {
        if (isKept[i])
            continue;
        zucomn::GroupChange change{old[i].name, old[i].name, {}, {}};
        for (const AcDbObjectId member : old[i].members)
            change.removed.push_back(pairs.named(member));
        differences.groups.push_back(std::move(change));
    }
}

} // namespace zu
