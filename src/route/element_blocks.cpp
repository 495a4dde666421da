#include "element_blocks.h"

#include "connection_indexes.h"
#include "element_code.h"
#include "entity_names.h"

#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

namespace zu {

const ElementBlock& ElementBlocks::of(const AcDbBlockReference& reference) {
    return of(reference, blockName(reference));
}

const ElementBlock& ElementBlocks::of(const AcDbBlockReference& reference, const std::wstring& name) {
    const auto [entry, isNew] = blocks_.try_emplace(name);
    if (isNew) {
        const AcDbObjectId id = reference.blockTableRecord();
        entry->second = {id, elementCode(name), connectionPointsOf(id)};
    }
    return entry->second;
}

Acad::ErrorStatus placePoints(const ElementBlock& block, const AcDbBlockReference& reference,
                              Points& points) {
    points.clear();
    if (!block.points || block.points.value.empty())
        return block.points.status;
    const AcGeMatrix3d transform = reference.blockTransform();
    for (const DefinitionPoint& point : block.points.value)
        points.push_back(planPoint(point.position, transform));
    return Acad::eOk;
}

} // namespace zu
