#pragma once

#include "report/output.h"

#include <zucomn/model/compare.h>

namespace zu::app {

/// The differences as the program prints them with --json.
[[nodiscard]] Json differencesJson(const zucomn::DrawingDifferences& differences);

/// Prints the differences as CSV: one row for each value, group member or joint that differs.
void printDifferenceRows(const zucomn::DrawingDifferences& differences);

/// Prints the differences for reading, one line each, by kind, and their numbers.
void printDifferences(const zucomn::DrawingDifferences& differences);

} // namespace zu::app
