#include "element_blocks.h"

#include "connection_indexes.h"
#include "element_code.h"

#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

namespace zu {

const ElementBlock& ElementBlocks::of(const AcDbBlockReference& reference, const std::wstring& name) {
    const auto [entry, isNew] = blocks_.try_emplace(name);
    if (isNew) {
        const AcDbObjectId id = reference.blockTableRecord();
        entry->second = {id, elementCode(name), connectionPointsOf(id)};
    }
    return entry->second;
}

Acad::ErrorStatus placePoints(const ElementBlock& block, const AcGeMatrix3d& transform, Points& points) {
    points.clear();
    if (!block.points)
        return block.points.status;
    for (const DefinitionPoint& point : block.points.value)
        points.push_back(planPoint(point.position, transform));
    return Acad::eOk;
}

} // namespace zu
