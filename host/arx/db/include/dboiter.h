#pragma once

#include "dbmain.h"

/// Iterates over the vertices or attributes of an entity in their order.
class AcDbObjectIterator {
public:
    void start() { at_ = 0; }
    [[nodiscard]] bool done() const { return at_ >= ids_.size() + entities_.size(); }
    void step() { ++at_; }
    /// Null for an entity that is in no database.
    [[nodiscard]] AcDbObjectId objectId() const { return at_ < ids_.size() ? ids_[at_] : AcDbObjectId(); }
    /// Returns the entity of an owner that is in no database; null for others, which are opened by their id.
    [[nodiscard]] AcDbEntity* entity() const { return at_ < entities_.size() ? entities_[at_] : nullptr; }

private:
    friend struct zuhost::ObjectAccess;
    /// The entities of an owner that is in no database have no ids; they are returned by `entity`.
    AcDbObjectIterator(std::vector<AcDbObjectId> ids, std::vector<AcDbEntity*> entities)
        : ids_(std::move(ids)), entities_(std::move(entities)) {}

    std::vector<AcDbObjectId> ids_;
    std::vector<AcDbEntity*> entities_; ///< Either these or ids.
    std::size_t at_ = 0;
};
