#include "dbents.h"

#include "curve_piece.h"
#include "database_core.h"
#include "dbelipse.h"
#include "dbsymtb.h"
#include "entity_parts.h"
#include "expansion.h"
#include "object_access.h"

namespace {

/// Columns and rows of a reference that is repeated.
constexpr int kColumns = 70;
constexpr int kRows = 71;
constexpr int kColumnSpacing = 44;
constexpr int kRowSpacing = 45;
constexpr int kAttributesFollow = 66;

void deleteAll(const AcDbVoidPtrArray& entities) {
    for (void* const entity : entities)
        delete static_cast<AcDbEntity*>(entity);
}

} // namespace

Acad::ErrorStatus AcDbBlockReference::setNormal(const AcGeVector3d& normal) {
    const AcGePoint3d at = position();
    const Acad::ErrorStatus status = setNormalTag(marker(), normal);
    return status == Acad::eOk ? setPosition(at) : status;
}

Acad::ErrorStatus AcDbBlockReference::setBlockTransform(const AcGeMatrix3d& transform) {
    if (!transform.isScaledOrtho(AcGeTol().setEqualVector(1e-8)))
        return Acad::eCannotScaleNonUniformly;
    AcGePoint3d origin;
    AcGeVector3d x;
    AcGeVector3d y;
    AcGeVector3d z;
    transform.getCoordSystem(origin, x, y, z);
    AcGeVector3d up = z / z.length();
    if (up.isEqualTo(AcGeVector3d::kZAxis, AcGeTol().setEqualVector(1e-12)))
        up = AcGeVector3d::kZAxis;
    const double side = x.crossProduct(y).dotProduct(z) < 0.0 ? -1.0 : 1.0;
    const Acad::ErrorStatus status = setScaleFactors({x.length(), side * y.length(), z.length()});
    if (status != Acad::eOk)
        return status;
    if (up != normal())
        setNormalTag(marker(), up);
    setRotation(up.perpVector().angleTo(x, up));
    return setPosition(origin);
}

Acad::ErrorStatus AcDbBlockReference::subTransformBy(const AcGeMatrix3d& matrix) {
    Acad::ErrorStatus status = zuhost::canChangeParts(*this);
    if (status == Acad::eOk)
        status = setBlockTransform(matrix * blockTransform());
    if (status == Acad::eOk)
        forEachPart([&](AcDbEntity& part) { part.transformBy(matrix); });
    return status;
}

const AcDbBlockTableRecord* AcDbBlockReference::definition() const {
    AcDbStub* const stub = blockTableRecord();
    return stub != nullptr ? AcDbBlockTableRecord::cast(&core()->object(*stub)) : nullptr;
}

AcGeMatrix3d AcDbBlockReference::definitionTransform() const {
    const AcDbBlockTableRecord* const block = definition();
    return block != nullptr ? blockTransform() * AcGeMatrix3d::translation(-block->origin().asVector())
                            : blockTransform();
}

std::vector<const AcDbEntity*> AcDbBlockReference::definitionEntities() const {
    std::vector<const AcDbEntity*> entities;
    const AcDbBlockTableRecord* const block = definition();
    if (block == nullptr)
        return entities;
    for (const AcDbObjectId id : zuhost::ObjectAccess::entities(*block, true)) {
        AcDbStub* const stub = id;
        if (const auto* entity = AcDbEntity::cast(&core()->object(*stub)))
            entities.push_back(entity);
    }
    return entities;
}

Acad::ErrorStatus AcDbBlockReference::extentsUnder(const AcGeMatrix3d& matrix, zuhost::Expansion& expansion,
                                                   AcDbExtents& extents) const {
    if (expansion.depthLeft <= 0)
        return Acad::eInvalidExtents;
    --expansion.depthLeft;
    const AcGeMatrix3d placed = matrix * definitionTransform();
    AcDbExtents single;
    bool isMeasured = false;
    for (const AcDbEntity* const entity : definitionEntities()) {
        if (expansion.entitiesLeft-- <= 0)
            break;
        AcDbExtents part;
        if (!entity->isVisible() || entity->extentsUnder(placed, expansion, part) != Acad::eOk)
            continue;
        single.addExt(part);
        isMeasured = true;
    }
    ++expansion.depthLeft;
    if (!isMeasured)
        return Acad::eInvalidExtents;
    const AcGeMatrix3d turned = matrix * AcGeMatrix3d::planeToWorld(normal()) *
                                AcGeMatrix3d::rotation(rotation(), AcGeVector3d::kZAxis);
    const auto last = [&](int countCode, int spacingCode) {
        const std::int64_t count = std::max<std::int64_t>(integerTag(marker(), countCode, 1), 1);
        return static_cast<double>(count - 1) * realTag(marker(), spacingCode, 0.0);
    };
    AcDbExtents whole;
    for (const double along : {0.0, last(kColumns, kColumnSpacing)})
        for (const double across : {0.0, last(kRows, kRowSpacing)}) {
            const AcGeVector3d offset = turned * AcGeVector3d(along, across, 0.0);
            whole.addPoint(single.minPoint() + offset);
            whole.addPoint(single.maxPoint() + offset);
        }
    extents = whole;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::subExplode(AcDbVoidPtrArray& entities) const {
    if (integerTag(marker(), kColumns, 1) > 1 || integerTag(marker(), kRows, 1) > 1)
        return Acad::eNotImplementedYet;
    const AcGeMatrix3d placed = definitionTransform();
    AcDbVoidPtrArray parts;
    for (const AcDbEntity* const entity : definitionEntities()) {
        AcDbEntity* part = nullptr;
        Acad::ErrorStatus status = entity->getTransformedCopy(placed, part);
        if (status == Acad::eCannotScaleNonUniformly &&
            (entity->isA() == AcDbCircle::desc() || entity->isA() == AcDbArc::desc())) {
            auto ellipse = std::make_unique<AcDbEllipse>();
            status = ellipse->assign(AcDbCurve::cast(entity)->pieces().front().transformed(placed));
            ellipse->setPropertiesFrom(entity);
            part = ellipse.release();
        }
        if (part != nullptr)
            parts.append(part);
        if (status != Acad::eOk) {
            deleteAll(parts);
            return status;
        }
    }
    entities.append(parts);
    return Acad::eOk;
}

const zuhost::NewParts& AcDbBlockReference::newAttributes() const {
    static const NewParts kNone;
    return newAttributes_ ? *newAttributes_ : kNone;
}

zuhost::NewParts& AcDbBlockReference::newAttributes() {
    if (!newAttributes_)
        newAttributes_ = std::make_unique<NewParts>();
    return *newAttributes_;
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbAttribute* attribute) {
    AcDbObjectId id;
    return appendAttribute(id, attribute);
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute) {
    const Acad::ErrorStatus status = zuhost::appendPart(*this, newAttributes(), attribute, id);
    return status == Acad::eOk ? setIntegerTag(marker(), kAttributesFollow, 1) : status;
}

AcDbObjectIterator* AcDbBlockReference::attributeIterator() const {
    return zuhost::newPartIterator(*this, newAttributes());
}

Acad::ErrorStatus AcDbBlockReference::openAttribute(AcDbAttribute*& attribute, AcDbObjectId id,
                                                    AcDb::OpenMode mode, bool openErased) const {
    return zuhost::openPart(*this, attribute, id, mode, openErased);
}

void AcDbBlockReference::forEachPart(const std::function<void(AcDbEntity&)>& change) {
    zuhost::changeParts(*this, std::as_const(*this).newAttributes(), change);
}

void AcDbBlockReference::copyPartsTo(AcDbEntity& copy) const {
    zuhost::copyParts(*this, newAttributes(), static_cast<AcDbBlockReference&>(copy).newAttributes());
}

void AcDbBlockReference::subAppended() {
    if (newAttributes_)
        zuhost::appendPending(*this, *newAttributes_, false);
    newAttributes_.reset();
}
