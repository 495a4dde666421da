#include "frame/library_text.h"
#include "frame/text_view.h"
#include "group_access.h"
#include "route_kinds.h"

#include <zucomn/model/elements.h>
#include <zucomn/route.h>

#include <dbgroup.h>
#include <dbobjptr.h>

#include <memory>
#include <optional>

namespace {

/// Returns the link kind of the last member visited: visits in order, up to the first kind for which `stops`
/// is true. nullopt for a group without members.
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

int store(std::optional<int> read, int* kind, bool takesUnknown) {
    if (!read)
        return -1;
    if (kind != nullptr)
        *kind = *read;
    return zu::isRouteKind(*read) || (takesUnknown && *read == 0) ? 0 : -1;
}

} // namespace

int RootComn_GetRootKind(const AcDbObjectId& group, int* kind) {
    return store(firstKind(group, [](int k) { return k != 0; }), kind, false);
}

int RootComn_GetRootKind(const CString& groupName, int* kind) {
    return RootComn_GetRootKind(zu::findGroup(groupName), kind);
}

int RootComn_GetRootKind2(const AcDbObjectId& group, int* kind) {
    return store(firstKind(group, [](int k) { return k > 0; }), kind, true);
}

std::vector<zucomn::RouteKind> zucomn::routeKinds() {
    std::vector<RouteKind> kinds;
    for (const zu::RouteKindRow& row : zu::kRouteKinds)
        kinds.push_back({row.number, std::wstring(zu::view(zu::libraryText(row.name))), row.colour});
    return kinds;
}

bool zucomn::isRouteKind(int linkKind) {
    return zu::isRouteKind(linkKind);
}
