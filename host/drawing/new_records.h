#pragma once

#include "drawing_state.h"

namespace zuhost {

/// The group code of an object's handle.
[[nodiscard]] int handleCode(const DrawingState& state, const AcDbStub& stub);

/// The records that an object made since opening starts with: type, handle, owner. Those of a TABLE, BLOCK or
/// ENDBLK, which `container` holds then, are complete.
[[nodiscard]] TagList firstRecords(const DrawingState& state, const AcDbStub& stub,
                                   const Container* container);

/// The container whose head or tail the stub is; null for other objects.
[[nodiscard]] const Container* framedBy(const DrawingState& state, const AcDbStub& stub);

} // namespace zuhost
