#pragma once

#include "model/drawing_file.h"

#include <gepnt3d.h>
#include <zucomn/model/audit.h>

#include <optional>
#include <string>
#include <vector>

namespace zu::app {

/// A fault of a drawing, or a probable mistake of its design.
struct Finding {
    std::string code; ///< One of findingCodes().
    zucomn::Severity severity = zucomn::Severity::error;
    std::string handle; ///< Of the object at fault.
    std::string problem;
    bool repaired = false;
    std::optional<AcGePoint3d> position; ///< The connection point, else the element's insertion point.
    std::vector<std::string> with;       ///< Handles of other objects that the finding concerns.
    std::string group;                   ///< The element's first route group, else its first group.
    std::string layer;                   ///< Empty for objects without a layer.
};

/// Audits the database and then the routes of a drawing, and repairs what can be repaired when asked to. A
/// repair loses nothing that the library can read.
[[nodiscard]] std::vector<Finding> audit(DrawingFile& drawing, bool repairing);

/// Returns the codes of all findings, in the order in which they are listed.
[[nodiscard]] std::vector<std::string> findingCodes();

/// "error" or "warning".
[[nodiscard]] std::string severityName(zucomn::Severity severity);

} // namespace zu::app
