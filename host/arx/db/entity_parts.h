#pragma once

#include "dboiter.h"

#include <memory>

namespace zuhost {

/// Parts of an entity that is in no database.
using NewParts = std::vector<PendingPtr<AcDbEntity>>;

/// Appends a part to its entity: to `pending` while the entity is in no database, else to the database, open
/// for write and with a record that ends the sequence. The part is owned by the callee on success only.
/// eNullObjectPointer, eAlreadyInDb; eNotOpenForWrite for the entity.
Acad::ErrorStatus appendPart(AcDbEntity& owner, NewParts& pending, AcDbEntity* part, AcDbObjectId& id);

/// Adds the pending parts, closed, to the database of an entity that has become one of it. Polylines have
/// their sequence ended even without vertices.
void appendPending(AcDbEntity& owner, NewParts& pending, bool endsAlways);

/// Returns the parts that are not erased, without the end of the sequence.
[[nodiscard]] std::vector<AcDbObjectId> partIds(const AcDbEntity& owner);
[[nodiscard]] AcDbObjectIterator* newPartIterator(const AcDbEntity& owner, const NewParts& pending);

/// Returns the parts that are not erased, whether they are open or not, to be read.
[[nodiscard]] std::vector<const AcDbEntity*> readParts(const AcDbEntity& owner, const NewParts& pending);

/// Adds copies of the parts to those of a copy of the entity, which is in no database.
void copyParts(const AcDbEntity& owner, const NewParts& pending, NewParts& copies);

/// Returns why a part cannot be opened for write; eOk when all can.
[[nodiscard]] Acad::ErrorStatus canChangeParts(const AcDbEntity& owner);
/// Calls the function with each part, open for write even if its layer is locked: the entity was opened in
/// spite of it. Parts that cannot be opened are skipped.
void changeParts(const AcDbEntity& owner, const NewParts& pending,
                 const std::function<void(AcDbEntity&)>& change);

/// Opens a part; eInvalidOwnerObject for one of another entity.
template <typename Part>
Acad::ErrorStatus openPart(const AcDbEntity& owner, Part*& part, AcDbObjectId id, AcDb::OpenMode mode,
                           bool openErased) {
    const Acad::ErrorStatus status = acdbOpenObject(part, id, mode, openErased);
    if (status != Acad::eOk || part->ownerId() == owner.objectId())
        return status;
    part->close();
    part = nullptr;
    return Acad::eInvalidOwnerObject;
}

} // namespace zuhost
