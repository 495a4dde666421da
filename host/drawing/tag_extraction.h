#pragma once

#include "drawing_state.h"

namespace zuhost {

/// The records of a stretch of the buffer, which must have been scanned without error.
[[nodiscard]] TagList bufferTags(const DrawingState& state, Span span);

/// The records of an object as they stand in the buffer.
[[nodiscard]] inline TagList bufferTags(const DrawingState& state, const AcDbStub& stub) {
    return bufferTags(state, {stub.offset, stub.offset + stub.length});
}

} // namespace zuhost
