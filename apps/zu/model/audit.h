#pragma once

#include "model/drawing_file.h"

#include <string>
#include <vector>

namespace zu::app {

/// A fault of a drawing.
struct Finding {
    std::string handle; ///< Of the object at fault.
    std::string problem;
    bool repaired = false;
};

/// Audits the database and then the routes of a drawing, and repairs what can be repaired when asked to. A
/// repair loses nothing that the library can read.
[[nodiscard]] std::vector<Finding> audit(DrawingFile& drawing, bool repairing);

} // namespace zu::app
