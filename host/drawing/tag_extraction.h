#pragma once

#include "drawing_state.h"

namespace zuhost {

/// The records of a stretch of the buffer, which must have been scanned without error.
[[nodiscard]] TagList bufferTags(const DrawingState& state, Span span);

/// The records of an object of the file, with the handle that it is written with.
[[nodiscard]] TagList objectTags(const DrawingState& state, const AcDbStub& stub);

} // namespace zuhost
