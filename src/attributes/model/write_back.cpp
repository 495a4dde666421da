#include "attributes/model/write_back.h"

#include "frame/resource_ids.h"

#include <afxwin.h>
#include <arxutil.h>
#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>
#include <zucomn/frame.h>

#include <set>

namespace zu {

namespace {

constexpr const wchar_t* kApplication = L"ZU_ATTR";
constexpr const wchar_t* kUpdateSections = L"ZU_ATTREDIT_SEC3D";

/// Empty when the layer is not locked.
CString lockedLayer(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbEntity> entity(id);
    if (entity.openStatus() != Acad::eOk)
        return {};
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(entity->layerId());
    if (layer.openStatus() != Acad::eOk || !layer->isLocked())
        return {};
    return layer->name().c_str();
}

void startUndoSteps(std::span<const AcDbObjectId> entities) {
    std::set<AcDbDatabase*> databases;
    for (const AcDbObjectId id : entities)
        if (AcDbDatabase* const database = id.database();
            database != nullptr && databases.insert(database).second)
            database->startUndoRecord();
}

bool writeEntity(AcDbObjectId entity, std::span<const ShownItem> items, const ParameterIndex& parameters) {
    CStringArray list;
    return ApiComn_extractAttributesArrayID(entity, kApplication, list) == 0 &&
           applyItems(list, items, parameters) &&
           ApiComn_appendAttributesArray(entity, kApplication, list) == 0;
}

} // namespace

bool tellLockedLayer(AcDbObjectId entity) {
    const CString layer = lockedLayer(entity);
    if (layer.IsEmpty())
        return false;
    CString format;
    ZuComn_LoadString(ZuComn_GetResource(), text::kLayerLocked, format);
    format.Replace(L"%s", layer);
    AfxMessageBox(format, MB_OK | MB_ICONSTOP);
    return true;
}

int writeBack(std::span<const AcDbObjectId> entities, std::span<const ShownItem> items,
              const ParameterIndex& parameters) {
    startUndoSteps(entities);
    int changed = 0;
    for (const AcDbObjectId entity : entities)
        if (!tellLockedLayer(entity) && writeEntity(entity, items, parameters))
            ++changed;
    ApiComn_sendCommand(kUpdateSections, 1, 0, 1);
    return changed;
}

} // namespace zu
