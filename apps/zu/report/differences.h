#pragma once

#include "report/output.h"

#include <zucomn/model/compare.h>

namespace zu::app {

/// The differences as the program prints them with --json.
[[nodiscard]] Json differencesJson(const zucomn::DrawingDifferences& differences);

/// Prints the differences for reading, one line each, by kind, and their numbers.
void printDifferences(const zucomn::DrawingDifferences& differences);

} // namespace zu::app
