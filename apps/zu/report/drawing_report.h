#pragma once

#include "model/drawing_file.h"
#include "report/output.h"

namespace zu::app {

enum class PlanForm { svg, png };

/// What a report says of one drawing, as JSON: "drawing", "name", "program", "format", "objects", "elements",
/// "groups", "warnings" (texts), "findings" (as of `zu check`, with "number" and "place", fractions of the
/// plan's width and height), "quantities" (rows by kind, what, block and size in the
/// user's language, with count and length), "plan" ("light" and "dark", data addresses
/// of pictures, "width" and "height"). Large plans are PNG in either form. Throws Failure when the drawing
/// can't be opened.
[[nodiscard]] Json reportOn(const DrawingSource& source, PlanForm form);

/// The same for a drawing that has no report: "drawing", "name", "error".
[[nodiscard]] Json failedReport(const std::string& drawing, const std::string& error);

} // namespace zu::app
