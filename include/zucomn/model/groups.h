#pragma once

#include "../export.h"

#include <dbid.h>

#include <optional>
#include <string>
#include <vector>

class AcDbDatabase;

namespace zucomn {

/// A group of the drawing.
struct Group {
    AcDbObjectId id;
    std::wstring name;         ///< Empty for groups outside of the group dictionary.
    int number = 0;            ///< By which route groups are ranked: what follows "RTGR" or "*A" in the name.
    int kind = 0;              ///< Its route kind; 0 when unknown, -1 without any. See RootComn_GetRootKind2.
    bool isRouteGroup = false; ///< By its name, "*A..." or "RTGR...".
    std::vector<AcDbObjectId> members;
};

/// Returns nullopt when the object is no group or can't be opened.
[[nodiscard]] ZUCOMN_API std::optional<Group> readGroup(AcDbObjectId id);

/// Returns the groups of the drawing's group dictionary in its order, each once. What else the dictionary of
/// a damaged drawing holds is left out.
[[nodiscard]] ZUCOMN_API std::vector<AcDbObjectId> groupsOf(const AcDbDatabase& drawing);

} // namespace zucomn
