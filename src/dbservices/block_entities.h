#pragma once

#include <dbsymtb.h>

#include <memory>
#include <vector>

namespace zu {

/// Returns the entities of a block in drawing order, without erased ones.
inline std::vector<AcDbObjectId> entityIds(const AcDbBlockTableRecord& block) {
    std::vector<AcDbObjectId> ids;
    AcDbBlockTableRecordIterator* found = nullptr;
    if (block.newIterator(found) != Acad::eOk)
        return ids;
    for (const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(found); !iterator->done();
         iterator->step())
        if (AcDbObjectId id; iterator->getEntityId(id) == Acad::eOk)
            ids.push_back(id);
    return ids;
}

} // namespace zu
