#include "model/element.h"

#include "failure.h"
#include "model/drawing_file.h"
#include "text.h"

#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>
#include <zucomn/dbservices.h>
#include <zucomn/model/elements.h>
#include <zucomn/route.h>

namespace zu::app {

Element readElement(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbBlockReference> reference(id);
    if (reference.openStatus() != Acad::eOk)
        throw Failure("object " + handleText(id) + " is no block reference");
    Element element;
    element.id = id;
    element.handle = handleText(id);
    element.block = narrow(reference->blockName());
    element.layer = narrow(reference->layerName());
    element.origin = reference->position();
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(reference->layerId());
    element.locked = layer.openStatus() == Acad::eOk && layer->isLocked();
    ZuComn_GetBlockElementCode(id, element.code);
    RootComn_GetBlockRootKind(id, &element.linkKind);
    AcArray<AcGePoint3d> points;
    ZuComn_GetConnectPoint(id, points);
    element.connectionPoints.assign(points.begin(), points.end());
    AcArray<AcDbObjectId> groups;
    ZuComn_GetGroupID(id, groups);
    element.groups = handleTexts(groups);
    return element;
}

std::string elementCodeName(int code) {
    return narrow(zucomn::elementKindName(code));
}

} // namespace zu::app
