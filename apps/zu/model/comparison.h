#pragma once

#include "model/drawing_file.h"

#include <zucomn/model/compare.h>

namespace zu::app {

/// Compares two open drawings.
[[nodiscard]] zucomn::DrawingDifferences compare(DrawingFile& before, DrawingFile& after);

} // namespace zu::app
