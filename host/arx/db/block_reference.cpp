#include "dbents.h"

#include "angles.h"
#include "database_core.h"
#include "object_access.h"
#include "record_name.h"
#include "zuhost/reference_facts.h"

#include <array>
#include <cmath>

ACRX_CONS_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity)

namespace {

constexpr std::string_view kMarker = "AcDbBlockReference";
constexpr std::string_view kRepeatedMarker = "AcDbMInsertBlock";

template <typename Place>
AcGeMatrix3d transformOf(const Place& place) {
    const AcGeScale3d& scale = place.scale;
    const double c = std::cos(place.rotation);
    const double s = std::sin(place.rotation);
    AcGeMatrix3d transform;
    transform.setCoordSystem(AcGePoint3d::kOrigin, {c * scale.sx, s * scale.sx, 0.0},
                             {-s * scale.sy, c * scale.sy, 0.0}, {0.0, 0.0, scale.sz});
    if (place.normal != AcGeVector3d::kZAxis)
        transform.preMultBy(AcGeMatrix3d::planeToWorld(place.normal));
    transform.entry[0][3] = place.position.x;
    transform.entry[1][3] = place.position.y;
    transform.entry[2][3] = place.position.z;
    return transform;
}

} // namespace

zuhost::TagList AcDbBlockReference::newRecords() const {
    return recordsOf("INSERT", {"AcDbEntity", kMarker});
}

AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block)
    : AcDbBlockReference() {
    setBlockTableRecord(block);
    setPosition(position);
}

zuhost::TagView AcDbBlockReference::ownSection() const {
    const zuhost::TagView single = section(kMarker);
    return single.empty() ? section(kRepeatedMarker) : single;
}

std::string_view AcDbBlockReference::marker() const {
    return section(kMarker).empty() && !section(kRepeatedMarker).empty() ? kRepeatedMarker : kMarker;
}

std::wstring AcDbBlockReference::nameOfBlock() const {
    return decoded(ownSection().text(2).value_or(""));
}

AcDbObjectId AcDbBlockReference::blockTableRecord() const {
    if (core() == nullptr)
        return {};
    AcDbStub* const table = core()->tableHead("BLOCK_RECORD");
    return table != nullptr ? AcDbObjectId(core()->findRecord(*table, nameOfBlock(), false)) : AcDbObjectId();
}

Acad::ErrorStatus AcDbBlockReference::setBlockTableRecord(AcDbObjectId block) {
    std::wstring name;
    const Acad::ErrorStatus status = zuhost::readRecordName<AcDbBlockTableRecord>(block, name);
    return status == Acad::eOk ? setTextTag(marker(), 2, name) : status;
}

template <typename Place>
void zuhost::ObjectAccess::readPlace(const TagView& own, Place& place) {
    std::array<double, 10> values{0, 0, 0, 1, 1, 1, 0, 0, 0, 1};
    own.reals(std::array{10, 20, 30, 41, 42, 43, 50, 210, 220, 230}, values);
    const auto& [x, y, z, sx, sy, sz, degrees, nx, ny, nz] = values;
    place.normal = AcDbBlockReference::unitNormal({nx, ny, nz});
    place.position = AcDbBlockReference::inWorld({x, y, z}, place.normal);
    place.scale = {sx, sy, sz};
    place.rotation = toRadians(degrees);
}

AcDbBlockReference::Placement AcDbBlockReference::placement() const {
    Placement place;
    zuhost::ObjectAccess::readPlace(ownSection(), place);
    return place;
}

void zuhost::readFacts(const AcDbBlockReference& reference, ReferenceFacts& facts) {
    const TagView own = ObjectAccess::records(reference);
    facts.block = ObjectAccess::decoded(reference, own.text(2).value_or(""));
    ObjectAccess::readPlace(own, facts);
    facts.transform = transformOf(facts);
}

AcGePoint3d AcDbBlockReference::position() const {
    std::array<double, 6> values{0, 0, 0, 0, 0, 1};
    ownSection().reals(std::array{10, 20, 30, 210, 220, 230}, values);
    const auto& [x, y, z, nx, ny, nz] = values;
    return inWorld({x, y, z}, unitNormal({nx, ny, nz}));
}
AcGeScale3d AcDbBlockReference::scaleFactors() const {
    return placement().scale;
}
double AcDbBlockReference::rotation() const {
    return placement().rotation;
}
AcGeVector3d AcDbBlockReference::normal() const {
    return placement().normal;
}

Acad::ErrorStatus AcDbBlockReference::setPosition(const AcGePoint3d& position) {
    return setPlanePointTag(marker(), 10, position);
}

Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& factors) {
    if (!std::isfinite(factors.sy) || !std::isfinite(factors.sz))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = setRealTag(marker(), 41, factors.sx);
    if (status == Acad::eOk) {
        setRealTag(marker(), 42, factors.sy);
        setRealTag(marker(), 43, factors.sz);
    }
    return status;
}

Acad::ErrorStatus AcDbBlockReference::setRotation(double angle) {
    return setRealTag(marker(), 50, zuhost::toDegrees(angle));
}

AcGeMatrix3d AcDbBlockReference::blockTransform() const {
    return transformOf(placement());
}
