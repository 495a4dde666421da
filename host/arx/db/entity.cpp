#include "dbmain.h"

#include "database_core.h"
#include "dbsymtb.h"
#include "drawing/tag_view.h"
#include "new_text.h"
#include "record_name.h"

#include <array>

namespace {

constexpr std::string_view kMarker = "AcDbEntity";
constexpr int kByLayer = 256;

AcRxObject* makeEntity() {
    class Entity : public AcDbEntity {};
    return new Entity;
}

} // namespace

ACRX_DEFINE_MEMBERS_WITH(AcDbEntity, AcDbObject, &makeEntity)

std::wstring AcDbEntity::layerText() const {
    std::wstring name = textTag(kMarker, 8);
    if (name.empty())
        name = L"0";
    return name;
}

ACHAR* AcDbEntity::layer() const {
    return zuhost::newText(layerText());
}

Acad::ErrorStatus AcDbEntity::layer(AcString& name) const {
    name = layerText().c_str();
    return Acad::eOk;
}

AcDbObjectId AcDbEntity::layerId() const {
    if (core() == nullptr)
        return {};
    AcDbStub* const table = core()->tableHead("LAYER");
    return table != nullptr ? AcDbObjectId(core()->findRecord(*table, layerText(), false)) : AcDbObjectId();
}

Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* name) {
    if (name == nullptr)
        return Acad::eInvalidInput;
    if (core() != nullptr) {
        AcDbStub* const table = core()->tableHead("LAYER");
        if (table == nullptr || core()->findRecord(*table, name, false) == nullptr)
            return Acad::eKeyNotFound;
    }
    return setTextTag(kMarker, 8, name);
}

Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId layer) {
    std::wstring name;
    const Acad::ErrorStatus status = zuhost::readRecordName<AcDbLayerTableRecord>(layer, name);
    return status == Acad::eOk ? setTextTag(kMarker, 8, name) : status;
}

Adesk::UInt16 AcDbEntity::colorIndex() const {
    return static_cast<Adesk::UInt16>(integerTag(kMarker, 62, kByLayer));
}

ACHAR* AcDbEntity::linetype() const {
    AcString name;
    linetype(name);
    return zuhost::newText(name.kwszPtr());
}

Acad::ErrorStatus AcDbEntity::linetype(AcString& name) const {
    const std::wstring stored = textTag(kMarker, 6);
    name = stored.empty() ? L"ByLayer" : stored.c_str();
    return Acad::eOk;
}

AcDb::LineWeight AcDbEntity::lineWeight() const {
    return static_cast<AcDb::LineWeight>(integerTag(kMarker, 370, AcDb::kLnWtByLayer));
}

bool AcDbEntity::isInPaperSpace() const {
    return integerTag(kMarker, 67, 0) == 1;
}

bool AcDbEntity::isVisible() const {
    return integerTag(kMarker, 60, 0) == 0;
}

AcGeVector3d AcDbEntity::normalTag(std::string_view marker) const {
    return unitNormal(pointTag(marker, 210, {0, 0, 1}).asVector());
}

AcGePoint3d AcDbEntity::planePointTag(std::string_view marker, int code) const {
    std::array<double, 6> values{0, 0, 0, 0, 0, 1};
    section(marker).reals(std::array{code, code + 10, code + 20, 210, 220, 230}, values);
    return inWorld({values[0], values[1], values[2]}, unitNormal({values[3], values[4], values[5]}));
}

AcGePoint3d AcDbEntity::inWorld(const AcGePoint3d& point, const AcGeVector3d& normal) {
    return normal == AcGeVector3d::kZAxis ? point : AcGeMatrix3d::planeToWorld(normal) * point;
}

AcGeVector3d AcDbEntity::unitNormal(const AcGeVector3d& direction) {
    // Nearly always, and then without rounding.
    if (direction.x == 0.0 && direction.y == 0.0 && direction.z == 1.0)
        return direction;
    const AcGeVector3d normal = direction.normal();
    return normal.isZeroLength() ? AcGeVector3d::kZAxis : normal;
}
