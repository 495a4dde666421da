#pragma once

#include "drawing_state.h"

namespace zuhost {

/// Returns the records of a span of the buffer, which must have been parsed without error.
[[nodiscard]] TagList bufferTags(const DrawingState& state, Span span);

/// Returns the records of an object of the file where they are in the buffer. Inline: called for each value
/// that is read.
[[nodiscard]] inline TagView objectView(const DrawingState& state, const AcDbStub& stub) {
    RecordPlaces places{.firstMarker = stub.marker, .extendedData = stub.extended};
    if (stub.firstSubclass != 0)
        places.secondMarker = places.firstMarker + stub.firstSubclass;
    return {{state.bytes.data() + stub.offset, stub.length}, state.form, places};
}

/// Returns the records of an object of the file, with the handle that it is written with.
[[nodiscard]] TagList objectTags(const DrawingState& state, const AcDbStub& stub);

/// Returns the records that an object created since opening begins with: type, handle, owner. Those of a
/// TABLE, BLOCK or ENDBLK, whose container is passed then, are complete.
[[nodiscard]] TagList firstRecords(const DrawingState& state, const AcDbStub& stub,
                                   const Container* container);

/// Returns the group code of an object's handle.
[[nodiscard]] int handleCode(const DrawingState& state, const AcDbStub& stub);

/// Returns the container whose new head or tail the stub is; null for other objects.
[[nodiscard]] const Container* framedBy(const DrawingState& state, const AcDbStub& stub);

} // namespace zuhost
