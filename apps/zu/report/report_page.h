#pragma once

#include "report/output.h"

#include <string>

namespace zu::app {

/// The reports as one HTML page without outside resources, in the user's language: for screens of any size,
/// light and dark, and for paper.
[[nodiscard]] std::string reportPage(const Json& reports);

/// The lists and tables of one report in the simple HTML that QTextDocument knows.
[[nodiscard]] std::string reportTables(const Json& report);

} // namespace zu::app
