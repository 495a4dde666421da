#include <zucomn/model/elements.h>

#include "attributes/model/layer_locks.h"
#include "connection_points.h"
#include "dbservices/group_lookup.h"
#include "element_code.h"

#include <zucomn/route.h>

#include <dbents.h>
#include <dbmain.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

namespace zucomn {

std::optional<Element> readElement(AcDbObjectId id) {
    Element element;
    element.id = id;
    {
        const AcDbObjectPointer<AcDbBlockReference> reference(id);
        if (reference.openStatus() != Acad::eOk)
            return std::nullopt;
        element.block = reference->blockName();
        element.layer = reference->layerName();
        element.origin = reference->position();
    }
    element.code = zu::elementCode(element.block);
    element.isOnLocked = !zu::LayerLocks().lockedLayer(id).IsEmpty();
    RootComn_GetBlockRootKind(id, &element.linkKind);
    if (auto points = zu::connectionPoints(id, zu::connectionLayer()))
        element.connectionPoints = std::move(points.value);
    if (const auto groups = zu::reactorGroups(id))
        element.groups.assign(groups->ids.begin(), groups->ids.end());
    return element;
}

std::vector<AcDbObjectId> modelSpaceEntities(const AcDbDatabase& drawing) {
    AcDbObjectId spaceId;
    if (const AcDbObjectPointer<AcDbBlockTable> blocks(drawing.blockTableId());
        blocks.openStatus() == Acad::eOk)
        blocks->getAt(ACDB_MODEL_SPACE, spaceId);
    const AcDbObjectPointer<AcDbBlockTableRecord> space(spaceId);
    if (space.openStatus() != Acad::eOk)
        return {};
    return space->entityIds();
}

std::vector<AcDbObjectId> modelSpaceReferences(const AcDbDatabase& drawing) {
    std::vector<AcDbObjectId> entities = modelSpaceEntities(drawing);
    std::erase_if(entities, [](AcDbObjectId id) {
        return !id.objectClass()->isDerivedFrom(AcDbBlockReference::desc());
    });
    return entities;
}

} // namespace zucomn
