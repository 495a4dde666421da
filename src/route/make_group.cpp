#include "group_access.h"
#include "group_repair.h"

#include <zucomn/frame.h>
#include <zucomn/route.h>

#include <dbgroup.h>
#include <dbobjptr.h>

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <vector>

namespace {

/// Groups with this number or a higher one rank equal to groups without a number.
constexpr int kNoNumber = 99999;

struct Candidate {
    AcDbObjectId id;
    CString name;
};

/// The route groups among the groups, each once; nullopt when one of the groups can't be opened.
std::optional<std::vector<Candidate>> routeGroups(const AcDbObjectIdArray& groups) {
    std::vector<Candidate> candidates;
    std::unordered_set<AcDbObjectId> seen;
    for (const AcDbObjectId id : groups) {
        if (!seen.insert(id).second)
            continue;
        const AcDbObjectPointer<AcDbGroup> group(id);
        if (group.openStatus() != Acad::eOk)
            return std::nullopt;
        AcString name;
        group->getName(name);
        if (zu::isRouteGroupName(CString(name)))
            candidates.push_back({id, CString(name)});
    }
    return candidates;
}

const Candidate& lowestNumbered(const std::vector<Candidate>& candidates) {
    const Candidate* lowest = &candidates.front();
    int best = kNoNumber;
    for (const Candidate& candidate : candidates) {
        const int number = zu::groupNumber(candidate.name);
        if (number < best) {
            best = number;
            lowest = &candidate;
        }
    }
    return *lowest;
}

/// The groups whose members the target takes over.
AcDbObjectIdArray sourcesFor(const Candidate& target, const std::vector<Candidate>& candidates) {
    AcDbObjectIdArray sources;
    for (const Candidate& candidate : candidates)
        if (candidate.name.CompareNoCase(target.name) != 0)
            sources.append(candidate.id);
    return sources;
}

bool canBeMerged(const AcDbObjectIdArray& sources, AcDbObjectId target) {
    return zu::canBeChanged(target) &&
           std::all_of(sources.begin(), sources.end(), [target](AcDbObjectId source) {
               const auto members = zu::groupMembers(source);
               return members && zu::usableMembers(*members, target.database()) && zu::canBeDeleted(source);
           });
}

/// Inserts each at the front in turn, so that the last one comes first.
void prependReversed(AcDbObjectId target, const AcDbObjectIdArray& elements) {
    AcDbObjectIdArray reversed;
    for (int i = elements.length() - 1; i >= 0; --i)
        reversed.append(elements[i]);
    const AcDbObjectPointer<AcDbGroup> group(target, AcDb::kForWrite);
    if (group.openStatus() == Acad::eOk)
        group->prepend(reversed);
}

int createFor(const AcDbObjectIdArray& elements) {
    CString name;
    RootComn_GetNewGroupName(name);
    AcDbObjectId created;
    return RootComn_CreateNewGroup(name, elements, created, false);
}

/// Elements of link kind 0, which belong to routes of several kinds.
AcDbObjectIdArray sharedElements(const AcDbObjectIdArray& elements) {
    AcDbObjectIdArray shared;
    for (const AcDbObjectId element : elements) {
        int kind = -1;
        RootComn_GetBlockRootKind(element, &kind);
        if (kind == 0)
            shared.append(element);
    }
    return shared;
}

} // namespace

int RootComn_MakeGroup(const AcArray<AcDbObjectId>& elements, const AcArray<AcDbObjectId>& existingGroups) {
    const auto candidates = routeGroups(existingGroups);
    if (!candidates)
        return -1;
    const AcDbObjectId target = candidates->empty() ? AcDbObjectId() : lowestNumbered(*candidates).id;
    const auto usable =
        zu::usableMembers(elements, target.isNull() ? ZuComn_getWorkDatabase() : target.database());
    if (!usable)
        return -1;
    const AcDbObjectIdArray shared = sharedElements(*usable);
    if (!std::all_of(shared.begin(), shared.end(), zu::canBeRepaired))
        return -1;
    if (!target.isNull()) {
        const AcDbObjectIdArray sources = sourcesFor(lowestNumbered(*candidates), *candidates);
        if (!canBeMerged(sources, target))
            return -1;
        for (const AcDbObjectId source : sources)
            if (RootComn_GroupMemberCopy(source, target) == 0)
                RootComn_DelGroup(source);
        prependReversed(target, *usable);
    } else if (elements.length() > 1 && !usable->isEmpty() && createFor(*usable) != 0) {
        return -1;
    }
    zu::GroupReader reader;
    for (const AcDbObjectId element : shared)
        (void)zu::repairMembership(element, 0, reader);
    return 0;
}
