#include "dbsymtb.h"

#include "database_core.h"

#include <array>

ACRX_CONS_DEFINE_MEMBERS(AcDbBlockTableRecord, AcDbSymbolTableRecord)

using zuhost::Container;

namespace {

constexpr std::string_view kBegin = "AcDbBlockBegin";

bool isSpaceName(const std::wstring& name) {
    const std::wstring folded = zuhost::foldedName(name);
    return folded.starts_with(L"*MODEL_SPACE") || folded.starts_with(L"*PAPER_SPACE") ||
           folded == L"$MODEL_SPACE" || folded == L"$PAPER_SPACE";
}

/// Appends the entities that the block owns; vertices and attributes are owned by an entity.
void addOwned(const std::vector<AcDbStub*>& members, const AcDbStub* owner, bool skipErased,
              std::vector<AcDbObjectId>& found) {
    for (AcDbStub* member : members)
        if (member->owner == owner && !(skipErased && member->erased))
            found.emplace_back(member);
}

} // namespace

zuhost::TagList AcDbBlockTableRecord::newRecords() const {
    zuhost::TagList records = recordsOf("BLOCK_RECORD", {"AcDbSymbolTableRecord", "AcDbBlockTableRecord"});
    records.add(2, "");
    records.add(340, "0");
    return records;
}

AcGePoint3d AcDbBlockTableRecord::origin() const {
    Container* const block =
        core() != nullptr ? core()->blockContainer(*static_cast<AcDbStub*>(objectId())) : nullptr;
    if (block == nullptr)
        return AcGePoint3d::kOrigin;
    std::array<double, 3> values{};
    core()->tags(*block->head).subclass(kBegin).reals(std::array{10, 20, 30}, values);
    return {values[0], values[1], values[2]};
}

Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& origin) {
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    Container* const block =
        core() != nullptr ? core()->blockContainer(*static_cast<AcDbStub*>(objectId())) : nullptr;
    if (block == nullptr)
        return Acad::eNotInDatabase;
    if (block->head == static_cast<AcDbStub*>(objectId()))
        return setPointTag(kBegin, 10, origin);
    AcDbObject* head = nullptr;
    const Acad::ErrorStatus opened = core()->open(*block->head, AcDb::kForWrite, head);
    if (opened != Acad::eOk)
        return opened;
    const Acad::ErrorStatus set = static_cast<AcDbBlockTableRecord*>(head)->setPointTag(kBegin, 10, origin);
    head->close();
    changingTags(); // invalidates values cached for the record: the base point is not in its own records
    return set;
}

bool AcDbBlockTableRecord::isLayout() const {
    return isSpaceName(name());
}

std::vector<AcDbObjectId> AcDbBlockTableRecord::entityIds(bool skipErased) const {
    std::vector<AcDbObjectId> found;
    if (core() == nullptr)
        return found;
    AcDbStub* const self = objectId();
    if (const Container* const block = core()->blockContainer(*self))
        addOwned(block->members, self, skipErased, found);
    if (isLayout())
        for (const Container& container : core()->document->containers())
            if (container.kind == Container::Kind::entities)
                addOwned(container.members, self, skipErased, found);
    return found;
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity) {
    AcDbObjectId id;
    return appendAcDbEntity(id, entity);
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity) {
    if (entity == nullptr)
        return Acad::eNullObjectPointer;
    if (entity->database() != nullptr)
        return Acad::eAlreadyInDb;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (core() == nullptr)
        return Acad::eNotInDatabase;
    if (!entity->canBeIn(*core()->document))
        return Acad::eNotApplicable;
    AcDbStub* const self = objectId();
    id = core()->adopt(entity, core()->entityContainer(*self), self);
    entity->fitToDrawing();
    entity->subAppendedToBlock();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator,
                                                    bool /*atBeginning*/, bool skipDeleted) const {
    iterator = new AcDbBlockTableRecordIterator(entityIds(skipDeleted));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntityId(AcDbObjectId& id) const {
    if (done())
        return Acad::eInvalidIndex;
    id = ids_[at_];
    return Acad::eOk;
}
