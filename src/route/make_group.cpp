#include "group_access.h"
#include "group_repair.h"

#include <zucomn/route.h>

#include <dbgroup.h>
#include <dbobjptr.h>

#include <vector>

namespace {

/// Numbers from here on never beat the first candidate.
constexpr int kNoNumber = 99999;

struct Candidate {
    AcDbObjectId id;
    CString name;
};

std::vector<Candidate> routeGroups(const AcDbObjectIdArray& groups) {
    std::vector<Candidate> candidates;
    for (const AcDbObjectId id : groups)
        if (const auto name = zu::groupName(id); name && zu::isRouteGroupName(*name))
            candidates.push_back({id, *name});
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

void mergeInto(const Candidate& target, const std::vector<Candidate>& candidates) {
    for (const Candidate& candidate : candidates) {
        if (candidate.name.CompareNoCase(target.name) == 0)
            continue;
        if (RootComn_GroupMemberCopy(candidate.id, target.id) == 0)
            RootComn_DelGroup(candidate.id);
    }
}

/// As if each were put at the front in turn, and so the last one first.
void putInFront(AcDbObjectId target, const AcDbObjectIdArray& elements) {
    const AcDbObjectIdArray usable = zu::usableMembers(elements, target.database());
    AcDbObjectIdArray reversed;
    for (int i = usable.length() - 1; i >= 0; --i)
        reversed.append(usable[i]);
    const AcDbObjectPointer<AcDbGroup> group(target, AcDb::kForWrite);
    if (group.openStatus() == Acad::eOk)
        group->prepend(reversed);
}

void tie(const AcDbObjectIdArray& elements, const std::vector<Candidate>& candidates) {
    if (candidates.empty()) {
        CString name;
        RootComn_GetNewGroupName(name);
        AcDbObjectId created;
        if (elements.length() > 1)
            RootComn_CreateNewGroup(name, elements, created, false);
        return;
    }
    const Candidate& target = lowestNumbered(candidates);
    mergeInto(target, candidates);
    putInFront(target.id, elements);
}

} // namespace

int RootComn_MakeGroup(const AcArray<AcDbObjectId>& elements, const AcArray<AcDbObjectId>& existingGroups) {
    tie(elements, routeGroups(existingGroups));
    zu::GroupReader reader;
    for (const AcDbObjectId element : elements) {
        int kind = -1;
        RootComn_GetBlockRootKind(element, &kind);
        if (kind == 0)
            zu::settleMembership(element, reader);
    }
    return 0;
}
