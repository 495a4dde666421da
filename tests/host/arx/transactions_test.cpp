#include "actrans.h"
#include "dbapserv.h"
#include "sample_drawing.h"

#include <zuhost/members.h>
#include <zuhost/undo.h>

namespace {

class Transactions : public SampleDrawing {
protected:
    Transactions() { acdbHostApplicationServices()->setWorkingDatabase(drawing.get()); }
    ~Transactions() override {
        while (actrTransactionManager->numActiveTransactions() > 0)
            actrTransactionManager->abortTransaction();
    }

    [[nodiscard]] int color(Adesk::UInt64 handle) const {
        return AcDbEntityPointer(id(handle))->colorIndex();
    }
    void paint(int index, AcTransaction* transaction) const {
        AcDbEntity* entity = nullptr;
        ASSERT_EQ(transaction->getObject(entity, id(kDuct), AcDb::kForWrite), Acad::eOk);
        EXPECT_EQ(entity->setColorIndex(static_cast<Adesk::UInt16>(index)), Acad::eOk);
    }
    [[nodiscard]] std::size_t entities() const {
        return zuhost::entityIds(*AcDbObjectPointer<AcDbBlockTableRecord>(drawing->currentSpaceId())).size();
    }
};

} // namespace

TEST_F(Transactions, TheOutermostEndClosesAndKeeps) {
    drawing->startUndoRecord();
    AcTransaction* const transaction = actrTransactionManager->startTransaction();
    paint(1, transaction);
    paint(2, transaction);
    EXPECT_EQ(AcDbEntityPointer(id(kDuct), AcDb::kForWrite).openStatus(), Acad::eWasOpenForWrite);
    EXPECT_EQ(actrTransactionManager->endTransaction(), Acad::eOk);
    EXPECT_EQ(color(kDuct), 2);
    EXPECT_EQ(drawing->undo(), Acad::eOk) << "one step";
    EXPECT_EQ(color(kDuct), 256);
}

TEST_F(Transactions, AnAbortTakesBackEverythingSinceTheStart) {
    const std::size_t before = entities();
    AcTransaction* const transaction = actrTransactionManager->startTransaction();
    paint(1, transaction);
    {
        const AcDbEntityPointer aside(id(kShelf), AcDb::kForWrite);
        aside->setColorIndex(5);
    }
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(transaction->getObject(space, drawing->currentSpaceId(), AcDb::kForWrite), Acad::eOk);
    auto* const line = new AcDbLine({0, 0, 0}, {1, 0, 0});
    ASSERT_EQ(space->appendAcDbEntity(line), Acad::eOk);
    EXPECT_EQ(actrTransactionManager->addNewlyCreatedDBRObject(line), Acad::eOk);
    EXPECT_EQ(actrTransactionManager->abortTransaction(), Acad::eOk);
    EXPECT_EQ(color(kDuct), 256);
    EXPECT_EQ(color(kShelf), 256) << "changed without the transaction";
    EXPECT_EQ(entities(), before);
    EXPECT_EQ(zuhost::redo(*drawing), Acad::eUndoOperationNotAvailable);
    EXPECT_EQ(drawing->undo(), Acad::eUndoOperationNotAvailable);
}

TEST_F(Transactions, TheyNest) {
    AcTransaction* const outer = actrTransactionManager->startTransaction();
    paint(1, outer);
    AcTransaction* const inner = actrTransactionManager->startTransaction();
    EXPECT_EQ(actrTransactionManager->numActiveTransactions(), 2);
    AcDbObject* object = nullptr;
    EXPECT_EQ(outer->getObject(object, id(kShelf)), Acad::eNotTopTransaction);
    paint(2, inner);
    EXPECT_EQ(actrTransactionManager->abortTransaction(), Acad::eOk);
    EXPECT_EQ(actrTransactionManager->topTransaction(), outer);
    paint(3, actrTransactionManager->startTransaction());
    EXPECT_EQ(actrTransactionManager->endTransaction(), Acad::eOk);
    AcDbEntity* duct = nullptr;
    ASSERT_EQ(outer->getObject(duct, id(kDuct)), Acad::eOk) << "still open";
    EXPECT_EQ(duct->colorIndex(), 3);
    EXPECT_EQ(actrTransactionManager->abortTransaction(), Acad::eOk);
    EXPECT_EQ(color(kDuct), 256) << "an ended transaction ends with the enclosing one";
}

TEST_F(Transactions, AbortWorksWithoutUndo) {
    drawing->disableUndoRecording(true);
    paint(1, actrTransactionManager->startTransaction());
    EXPECT_EQ(actrTransactionManager->abortTransaction(), Acad::eOk);
    EXPECT_EQ(color(kDuct), 256);
    paint(1, actrTransactionManager->startTransaction());
    EXPECT_EQ(actrTransactionManager->endTransaction(), Acad::eOk);
    EXPECT_EQ(color(kDuct), 1);
    EXPECT_EQ(drawing->undo(), Acad::eUndoOperationNotAvailable) << "recorded for the abort only";
}

TEST_F(Transactions, ObjectsAreReturnedAgainAndUpgraded) {
    AcTransaction* const transaction = actrTransactionManager->startTransaction();
    AcDbEntity* first = nullptr;
    AcDbEntity* second = nullptr;
    ASSERT_EQ(transaction->getObject(first, id(kDuct)), Acad::eOk);
    EXPECT_EQ(first->setColorIndex(1), Acad::eNotOpenForWrite);
    ASSERT_EQ(actrTransactionManager->getObject(second, id(kDuct), AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(first, second);
    EXPECT_EQ(first->setColorIndex(1), Acad::eOk);
    AcDbLine* line = nullptr;
    EXPECT_EQ(transaction->getObject(line, id(kDuct)), Acad::eNotThatKindOfClass);
    EXPECT_EQ(transaction->getObject(line, AcDbObjectId()), Acad::eNullObjectId);
    first->erase();
    AcDbObject* erased = nullptr;
    EXPECT_EQ(transaction->getObject(erased, id(kDuct)), Acad::eWasErased);
    EXPECT_EQ(transaction->getObject(erased, id(kDuct), AcDb::kForRead, true), Acad::eOk);
    first->close(); // ends with the transaction all the same
    EXPECT_EQ(actrTransactionManager->endTransaction(), Acad::eOk);
    EXPECT_TRUE(id(kDuct).isErased());
}

TEST_F(Transactions, UnbalancedCallsReturnTheirStatus) {
    AcDbTransactionManager& manager = *drawing->transactionManager();
    EXPECT_EQ(manager.endTransaction(), Acad::eNoActiveTransactions);
    EXPECT_EQ(manager.abortTransaction(), Acad::eNoActiveTransactions);
    EXPECT_EQ(manager.topTransaction(), nullptr);
    AcDbObject* object = nullptr;
    EXPECT_EQ(manager.getObject(object, id(kDuct)), Acad::eNoActiveTransactions);
    AcDbLine line;
    EXPECT_EQ(manager.addNewlyCreatedDBRObject(&line), Acad::eNoActiveTransactions);
    manager.startTransaction();
    EXPECT_EQ(manager.addNewlyCreatedDBRObject(&line), Acad::eNotNewlyCreated);
    EXPECT_EQ(manager.addNewlyCreatedDBRObject(nullptr), Acad::eNullObjectPointer);
    EXPECT_EQ(drawing->undo(), Acad::eUndoOperationNotAvailable) << "not below the transaction";
    paint(1, manager.topTransaction());
    drawing.reset(); // the drawing ends before its transaction
    EXPECT_EQ(manager.abortTransaction(), Acad::eOk);
}
