// Drawings made of parts of others.

#include "cloner.h"
#include "dbsymtb.h"
#include "object_access.h"
#include "zuhost/drawing_files.h"

namespace {

/// Returns the entities of a block of the database that are not erased; none for other ids.
AcDbObjectIdArray entitiesOf(const AcDbDatabase& database, AcDbObjectId id,
                             const AcDbBlockTableRecord*& block) {
    AcDbObjectIdArray entities;
    block = id.database() == &database && !id.isErased()
                ? AcDbBlockTableRecord::cast(&zuhost::coreOf(database).object(*static_cast<AcDbStub*>(id)))
                : nullptr;
    if (block != nullptr)
        for (const AcDbObjectId entity : zuhost::ObjectAccess::entities(*block, true))
            entities.append(entity);
    return entities;
}

/// Returns an empty drawing in the units of another.
std::unique_ptr<AcDbDatabase> newDrawing(const AcDbDatabase& like) {
    auto drawing = std::make_unique<AcDbDatabase>();
    drawing->setInsunits(like.insunits());
    drawing->setMeasurement(like.measurement());
    drawing->setLunits(like.lunits());
    drawing->setLuprec(like.luprec());
    drawing->setAunits(like.aunits());
    drawing->setAuprec(like.auprec());
    drawing->setLtscale(like.ltscale());
    return drawing;
}

} // namespace

Acad::ErrorStatus AcDbDatabase::wblock(AcDbDatabase*& output) {
    output = nullptr;
    if (!core_->document)
        return Acad::eNoDatabase;
    std::string bytes = zuhost::dxfOutBytes(*this, zuhost::isBinary(*this));
    if (bytes.empty())
        return Acad::eFilerError;
    auto drawing = std::make_unique<AcDbDatabase>(false);
    const Acad::ErrorStatus status = zuhost::dxfInBytes(*drawing, std::move(bytes), L"");
    if (status == Acad::eOk)
        output = drawing.release();
    return status;
}

Acad::ErrorStatus AcDbDatabase::wblock(AcDbDatabase*& output, AcDbObjectId block) {
    output = nullptr;
    const AcDbBlockTableRecord* record = nullptr;
    const AcDbObjectIdArray entities = entitiesOf(*this, block, record);
    return record != nullptr ? wblock(output, entities, record->origin()) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbDatabase::wblock(AcDbDatabase*& output, const AcDbObjectIdArray& ids,
                                       const AcGePoint3d& base) {
    output = nullptr;
    if (!core_->document)
        return Acad::eNoDatabase;
    std::unique_ptr<AcDbDatabase> drawing = newDrawing(*this);
    const Acad::ErrorStatus status = wblock(drawing.get(), ids, base, AcDb::kDrcIgnore);
    if (status == Acad::eOk)
        output = drawing.release();
    return status;
}

Acad::ErrorStatus AcDbDatabase::wblock(AcDbDatabase* output, const AcDbObjectIdArray& ids,
                                       const AcGePoint3d& base, AcDb::DuplicateRecordCloning cloning) {
    if (output == nullptr)
        return Acad::eNullObjectPointer;
    for (const AcDbObjectId id : ids)
        if (id.database() != this)
            return id.isNull() ? Acad::eNullObjectId : Acad::eWrongDatabase;
    AcDbObjectIdArray objects = ids;
    AcDbIdMapping mapping;
    mapping.setDeepCloneContext(AcDb::kDcWblock);
    const Acad::ErrorStatus status =
        output->wblockCloneObjects(objects, output->currentSpaceId(), mapping, cloning);
    return status == Acad::eOk ? output->setInsbase(base) : status;
}

Acad::ErrorStatus AcDbDatabase::insert(AcDbObjectId& block, const ACHAR* name, AcDbDatabase* other,
                                       bool /*preserveSource*/) {
    auto record = std::make_unique<AcDbBlockTableRecord>();
    if (const Acad::ErrorStatus named = record->setName(name); named != Acad::eOk)
        return named;
    if (other == nullptr)
        return Acad::eNullObjectPointer;
    if (other == this)
        return Acad::eWrongDatabase;
    AcDbBlockTable* table = nullptr;
    Acad::ErrorStatus status = getSymbolTable(table, AcDb::kForWrite);
    if (status != Acad::eOk)
        return status;
    record->setOrigin(other->insbase());
    AcDbObjectId added;
    status = table->add(added, record.get());
    table->close();
    if (status != Acad::eOk)
        return status;
    record.release()->close();
    const AcDbBlockTableRecord* space = nullptr;
    AcDbObjectIdArray entities = entitiesOf(*other, other->currentSpaceId(), space);
    AcDbIdMapping mapping;
    mapping.setDeepCloneContext(AcDb::kDcInsert);
    status = wblockCloneObjects(entities, added, mapping, AcDb::kDrcIgnore);
    if (status == Acad::eOk)
        block = added;
    return status;
}
