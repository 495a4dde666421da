#pragma once

#include "report/output.h"

#include <functional>
#include <string>

namespace zu::app {

/// The reports as one HTML page without outside resources, in the user's language: for screens of any size,
/// light and dark, and for paper.
[[nodiscard]] std::string reportPage(const Json& reports);

/// Returns the address of a place in the report: the mark "m1" or the finding "f1".
using LinkAddress = std::function<std::string(const std::string& place)>;

/// The lists and tables of one report in the simple HTML that QTextDocument knows. The number of each finding
/// is an anchor, and leads to its mark when the plan has one.
[[nodiscard]] std::string reportTables(const Json& report, const LinkAddress& address);

} // namespace zu::app
