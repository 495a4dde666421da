#include "layer_locks.h"

#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

namespace zu {

namespace {

AcDbObjectId layerOf(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbEntity> entity(id);
    return entity.openStatus() == Acad::eOk ? entity->layerId() : AcDbObjectId();
}

CString nameIfLocked(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(id);
    AcString name;
    if (layer.openStatus() == Acad::eOk && layer->isLocked())
        layer->getName(name);
    return {name};
}

} // namespace

const CString& LayerLocks::lockedLayer(AcDbObjectId entity) {
    const auto [entry, isNew] = names_.try_emplace(layerOf(entity));
    if (isNew)
        entry->second = nameIfLocked(entry->first);
    return entry->second;
}

} // namespace zu
