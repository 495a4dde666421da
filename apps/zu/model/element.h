#pragma once

#include <dbid.h>
#include <gepnt3d.h>
#include <zucomn/model/elements.h>

#include <string>
#include <vector>

namespace zu::app {

/// What the program shows of one block reference.
struct Element {
    AcDbObjectId id;
    std::string handle;
    std::string block;
    int code = zucomn::kNoElement;
    int linkKind = -1;
    std::string layer;
    bool locked = false;
    AcGePoint3d origin;
    std::vector<AcGePoint3d> connectionPoints;
    std::vector<std::string> groups;

    /// True when the block's name has an element prefix (equipment, route line, fitting).
    [[nodiscard]] bool isRouteElement() const { return code != zucomn::kNoElement; }
};

/// Reads a block reference; throws Failure when the object is none.
[[nodiscard]] Element readElement(AcDbObjectId id);

/// "route line", "elbow" ...: an element code in words.
[[nodiscard]] std::string elementCodeName(int code);

} // namespace zu::app
