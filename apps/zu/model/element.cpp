#include "model/element.h"

#include "failure.h"
#include "model/drawing_file.h"
#include "text.h"

#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>
#include <zucomn/dbservices.h>
#include <zucomn/route.h>

#include <algorithm>
#include <array>

namespace zu::app {

namespace {

struct CodeName {
    int code;
    const char* name;
};

constexpr std::array kCodeNames{
    CodeName{0, "equipment"}, CodeName{1, "route line"},    CodeName{2, "main route line"},
    CodeName{3, "elbow"},     CodeName{4, "tee"},           CodeName{5, "reducer"},
    CodeName{6, "45° elbow"}, CodeName{7, "90° elbow"},     CodeName{12, "S fitting"},
    CodeName{16, "valve"},    CodeName{17, "90° elbow up"}, CodeName{18, "90° elbow down"},
    CodeName{24, "45° tee"},  CodeName{99, "end"},          CodeName{100, "-"},
    CodeName{101, "fitting"},
};

} // namespace

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
    const auto found = std::find_if(kCodeNames.begin(), kCodeNames.end(),
                                    [code](const CodeName& n) { return n.code == code; });
    return found != kCodeNames.end() ? found->name : "fitting " + std::to_string(code);
}

} // namespace zu::app
