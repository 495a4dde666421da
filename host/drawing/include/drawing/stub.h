#pragma once

#include <cstdint>

class AcDbDatabase;
class AcDbObject;

/// The target of an AcDbObjectId: one object of a drawing, built or not yet built. Stubs live as long as
/// their database and never move: an id stays valid after its object is erased.
struct AcDbStub {
    std::uint64_t handle = 0;
    AcDbDatabase* database = nullptr;
    AcDbObject* object = nullptr; ///< Built on first opening; owned by the database.
    AcDbStub* owner = nullptr;    ///< Null without an owner, and when the drawing lacks it.
    std::uint64_t offset = 0;     ///< Of the records in the drawing's buffer.
    std::uint32_t length = 0;     ///< Bytes of the records; 0 for objects created since opening.
    std::uint32_t marker = 0;     ///< Bytes before the first subclass marker, or `extended` without one.
    std::uint32_t extended = 0;   ///< Bytes before the extended data, or `length` without any.
    std::uint16_t type = 0;       ///< Index into zuhost::Document::typeName.
    /// Bytes from the first subclass marker to the second; 0 when there is none within 255.
    std::uint8_t firstSubclass = 0;
    bool erased : 1 = false;
    bool hasInternalHandle : 1 = false; ///< The file has none (before R13): `handle` is not written.
    /// The handle in its records is unreadable or that of an earlier object; `handle` replaces it when the
    /// drawing is saved with a change or in the other form.
    bool replacesHandle : 1 = false;
};
