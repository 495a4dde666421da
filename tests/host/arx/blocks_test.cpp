#include "sample_drawing.h"
#include <zuhost/drawing_files.h>
#include <zuhost/members.h>

namespace {

using Blocks = SampleDrawing;

} // namespace

TEST_F(Blocks, EntitiesAreListedInOrder) {
    const AcDbObjectPointer<AcDbBlockTableRecord> space(blockId(*drawing, ACDB_MODEL_SPACE));
    EXPECT_TRUE(space->isLayout());
    const auto ids = zuhost::entityIds(*space);
    // Attributes and their SEQEND belong to their references and are not listed.
    for (const AcDbObjectId entity : ids)
        EXPECT_EQ(entity.objectClass()->isDerivedFrom(AcDbEntity::desc()), true);
    erase(id(kDuct));
    EXPECT_EQ(zuhost::entityIds(*space).size(), ids.size() - 1);
    EXPECT_EQ(zuhost::entityIds(*space, false), ids);

    AcDbBlockTableRecordIterator* iterator = nullptr;
    space->newIterator(iterator);
    const std::unique_ptr<AcDbBlockTableRecordIterator> owned(iterator);
    AcDbObjectId first;
    EXPECT_EQ(iterator->getEntityId(first), Acad::eOk);
    EXPECT_EQ(first, ids.front());
}

TEST_F(Blocks, NewBlocksAreSavedWithTheirReferences) {
    AcDbBlockTable* blocks = nullptr;
    ASSERT_EQ(drawing->getBlockTable(blocks, AcDb::kForWrite), Acad::eOk);
    auto* const block = new AcDbBlockTableRecord;
    block->setName(L"新部品");
    ASSERT_EQ(blocks->add(block), Acad::eOk);
    blocks->close();
    EXPECT_EQ(block->setOrigin({5, 6, 0}), Acad::eOk);
    EXPECT_FALSE(block->isLayout());
    auto* const line = new AcDbLine({0, 0, 0}, {1, 0, 0});
    EXPECT_EQ(block->appendAcDbEntity(line), Acad::eOk);
    EXPECT_EQ(block->appendAcDbEntity(line), Acad::eAlreadyInDb);
    line->close();
    const AcDbObjectId definition = block->objectId();
    block->close();
    const AcDbObjectId placed = add(*drawing, new AcDbBlockReference({9, 9, 0}, definition));

    const std::string bytes = zuhost::dxfOutBytes(*drawing, false);
    const auto count = [&bytes](std::string_view text) {
        int found = 0;
        for (std::size_t at = bytes.find(text); at != std::string::npos; at = bytes.find(text, at + 1))
            ++found;
        return found;
    };
    EXPECT_EQ(count("\nENDBLK\n  5\n"), count("\nENDBLK\n")) << "every ENDBLK has a handle";
    EXPECT_EQ(count("\nAcDbBlockEnd\n"), count("\nENDBLK\n"));
    const auto again = readBytes(bytes);
    const AcDbObjectPointer<AcDbBlockTableRecord> read(blockId(*again, L"新部品"));
    ASSERT_EQ(read.openStatus(), Acad::eOk);
    EXPECT_EQ(read->origin().y, 6.0);
    EXPECT_EQ(zuhost::entityIds(*read).size(), 1U);
    const AcDbObjectPointer<AcDbBlockReference> reference(idIn(*again, placed.handle().value()));
    EXPECT_EQ(reference->blockTableRecord(), read->objectId());
}

TEST_F(Blocks, ErasedBlockIsNotSaved) {
    const AcDbObjectId shelf = blockId(*drawing, L"書棚");
    for (const Adesk::UInt64 handle : {0x106U, 0x108U, 0x10AU})
        erase(id(handle));
    erase(shelf);
    const auto again = reopened();
    EXPECT_TRUE(blockId(*again, L"書棚").isNull());
    const AcDbObjectPointer<AcDbBlockTableRecord> before(blockId(*drawing, ACDB_MODEL_SPACE));
    const AcDbObjectPointer<AcDbBlockTableRecord> after(blockId(*again, ACDB_MODEL_SPACE));
    EXPECT_EQ(zuhost::entityIds(*before).size(), zuhost::entityIds(*after).size());
}

TEST_F(Blocks, AppendingNeedsABlockOpenForWrite) {
    const AcDbObjectPointer<AcDbBlockTableRecord> space(blockId(*drawing, ACDB_MODEL_SPACE));
    auto point = std::make_unique<AcDbPoint>();
    EXPECT_EQ(space->appendAcDbEntity(point.get()), Acad::eNotOpenForWrite);
    EXPECT_EQ(space->appendAcDbEntity(nullptr), Acad::eNullObjectPointer);
    EXPECT_TRUE(point->objectId().isNull());
}
