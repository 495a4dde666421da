#include "dbmain.h"

#include "database_core.h"
#include "dbsymtb.h"
#include "record_name.h"

namespace {

constexpr int kExtrusion = 210;
constexpr int kTextStyle = 7;

} // namespace

Acad::ErrorStatus AcDbEntity::setNormalTag(std::string_view marker, const AcGeVector3d& normal) {
    const AcGeVector3d unit = normal.normal();
    return unit.isUnitLength() ? setPointTag(marker, kExtrusion, AcGePoint3d::kOrigin + unit)
                               : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbEntity::setPlanePointTag(std::string_view marker, int code, const AcGePoint3d& point) {
    const AcGeVector3d normal = normalTag(marker);
    return setPointTag(marker, code,
                       normal == AcGeVector3d::kZAxis ? point : AcGeMatrix3d::worldToPlane(normal) * point);
}

AcDbObjectId AcDbEntity::styleTag(std::string_view marker) const {
    AcDbStub* const table = core() != nullptr ? core()->tableHead("STYLE") : nullptr;
    if (table == nullptr)
        return {};
    const std::wstring name = textTag(marker, kTextStyle);
    return {core()->findRecord(*table, name.empty() ? L"Standard" : name, false)};
}

Acad::ErrorStatus AcDbEntity::setStyleTag(std::string_view marker, AcDbObjectId style) {
    std::wstring name;
    const Acad::ErrorStatus status = zuhost::readRecordName<AcDbTextStyleTableRecord>(style, name);
    return status == Acad::eOk ? setTextTag(marker, kTextStyle, name) : status;
}
