#pragma once

#include <dbid.h>

#include <string>
#include <vector>

namespace zu::app {

/// A group of the group dictionary.
struct Group {
    AcDbObjectId id;
    std::string name;
    int number = 0; ///< By which route groups are ranked: what follows "RTGR" (five digits) or "*A".
    int kind = 0;   ///< Its route kind; 0 when unknown, -1 without any.
    bool isRouteGroup = false; ///< "*A..." or "RTGR...".
    std::vector<AcDbObjectId> members;
};

/// True when the object is a group; the group dictionary of a damaged drawing may hold others.
[[nodiscard]] bool isGroup(AcDbObjectId id);

[[nodiscard]] Group readGroup(AcDbObjectId id);

} // namespace zu::app
