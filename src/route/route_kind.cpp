#include "group_access.h"

#include <zucomn/route.h>

#include <dbgroup.h>
#include <dbobjptr.h>

#include <memory>
#include <optional>

namespace {

constexpr int kLastRouteKind = 4;

/// Link kind of the members in order up to the first that `stops`; nullopt for a group without members.
template <typename Stops>
std::optional<int> firstKind(AcDbObjectId id, Stops stops) {
    const AcDbObjectPointer<AcDbGroup> group(id);
    if (group.openStatus() != Acad::eOk)
        return std::nullopt;
    const std::unique_ptr<AcDbGroupIterator> members(group->newIterator());
    if (members->done())
        return std::nullopt;
    int kind = 0;
    for (; !members->done(); members->next()) {
        RootComn_GetBlockRootKind(members->objectId(), &kind);
        if (stops(kind))
            break;
    }
    return kind;
}

int store(std::optional<int> read, int* kind, int least) {
    if (!read)
        return -1;
    if (kind != nullptr)
        *kind = *read;
    return *read >= least && *read <= kLastRouteKind ? 0 : -1;
}

} // namespace

int RootComn_GetRootKind(const AcDbObjectId& group, int* kind) {
    return store(firstKind(group, [](int k) { return k != 0; }), kind, 1);
}

int RootComn_GetRootKind(const CString& groupName, int* kind) {
    return RootComn_GetRootKind(zu::findGroup(groupName), kind);
}

int RootComn_GetRootKind2(const AcDbObjectId& group, int* kind) {
    return store(firstKind(group, [](int k) { return k > 0; }), kind, 0);
}
