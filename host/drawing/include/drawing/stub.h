#pragma once

#include <cstdint>

class AcDbDatabase;
class AcDbObject;

/// What an AcDbObjectId points to: one object of a drawing, whether it has been built yet or not. Stubs live
/// as long as their database and never move, so that an id stays comparable and safe when its object is
/// erased.
struct AcDbStub {
    std::uint64_t handle = 0;
    AcDbDatabase* database = nullptr;
    AcDbObject* object = nullptr; ///< Built on first opening; owned by the database.
    AcDbStub* owner = nullptr;    ///< Null for what has no owner, or one that is not in the drawing.
    std::uint64_t offset = 0;     ///< First byte of the records in the drawing's buffer.
    std::uint32_t length = 0;     ///< Bytes of the records; 0 for objects created since opening.
    std::uint16_t type = 0;       ///< Index into zuhost::Document::typeName.
    bool erased = false;
    bool changed = false;      ///< Differs from its records in the buffer (always true for new objects).
    bool hasInternalHandle = false; ///< The drawing gave it no handle (before R13): not written when saving.
    /// Its records hold a handle that an earlier object has or that is unreadable; `handle` takes its place
    /// when the drawing is written for a change elsewhere or in the other form.
    bool replacesHandle = false;
};
