#include "actrans.h"
#include "dbapserv.h"
#include "sample_drawing.h"

#include <zuhost/members.h>
#include <zuhost/undo.h>

#include <array>
#include <random>

namespace {

constexpr std::array<Adesk::UInt64, 4> kEdited{0x114, 0x106, 0x116, 0x10C};

/// What the edits change: colours, erased entities (-1) and the number of entities of model space.
struct State {
    std::array<int, kEdited.size()> colors{};
    std::size_t entities = 0;

    bool operator==(const State&) const = default;
};

/// Edits the sample drawing at random, in steps with nested transactions and groups, beside a model that
/// keeps the state before each step.
class UndoModel : public SampleDrawing {
protected:
    UndoModel() {
        acdbHostApplicationServices()->setWorkingDatabase(drawing.get());
        const AcDbObjectPointer<AcDbLayerTable> layers(drawing->layerTableId());
        AcDbSymbolTableIterator* made = nullptr;
        layers->newIterator(made);
        const std::unique_ptr<AcDbSymbolTableIterator> all(made);
        for (; !all->done(); all->step()) {
            AcDbObjectId id;
            all->getRecordId(id);
            AcDbObjectPointer<AcDbLayerTableRecord>(id, AcDb::kForWrite)->setIsLocked(false);
        }
        zuhost::setUndoMark(*drawing); // below are the changes above
        marks_.push_back(0);
        base_ = current_ = read();
    }
    ~UndoModel() override {
        while (actrTransactionManager->numActiveTransactions() > 0)
            actrTransactionManager->abortTransaction();
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }

    int below(int end) { return std::uniform_int_distribution<>(0, end - 1)(random_); }

    [[nodiscard]] State read() const {
        State state;
        for (std::size_t i = 0; i < kEdited.size(); ++i) {
            const AcDbObjectPointer<AcDbEntity> entity(id(kEdited[i]), AcDb::kForRead, true);
            state.colors[i] = entity->isErased() ? -1 : entity->colorIndex();
        }
        state.entities =
            zuhost::entityIds(*AcDbObjectPointer<AcDbBlockTableRecord>(drawing->currentSpaceId())).size();
        return state;
    }

    void edit() {
        redo_.clear();
        ++changes_;
        const std::size_t which = static_cast<std::size_t>(below(static_cast<int>(kEdited.size())));
        int& color = current_.colors[which];
        if (below(4) == 0) {
            add(*drawing, new AcDbPoint({1, 2, 3}));
            ++current_.entities;
            return;
        }
        AcDbObject* opened = nullptr;
        const bool inTransaction = actrTransactionManager->numActiveTransactions() > 0 && below(2) == 0;
        if (inTransaction)
            ASSERT_EQ(actrTransactionManager->getObject(opened, id(kEdited[which]), AcDb::kForWrite, true),
                      Acad::eOk);
        else
            ASSERT_EQ(acdbOpenObject(opened, id(kEdited[which]), AcDb::kForWrite, true), openStatus(which));
        if (opened == nullptr) { // open in a transaction
            --changes_;
            return;
        }
        if (inTransaction)
            held_.push_back(which);
        if (below(4) == 0 || color == -1) {
            EXPECT_EQ(opened->erase(color != -1), Acad::eOk);
            current_.entities += color == -1 ? 1 : static_cast<std::size_t>(-1);
            if (color == -1)
                color = AcDbEntity::cast(opened)->colorIndex();
            else
                color = -1;
        } else {
            color = (color + 1 + below(200)) % 256;
            EXPECT_EQ(AcDbEntity::cast(opened)->setColorIndex(static_cast<Adesk::UInt16>(color)), Acad::eOk);
        }
        if (!inTransaction)
            opened->close();
    }
    [[nodiscard]] Acad::ErrorStatus openStatus(std::size_t which) const {
        const bool isHeld = std::find(held_.begin(), held_.end(), which) != held_.end();
        return isHeld ? Acad::eWasOpenForWrite : Acad::eOk;
    }

    void transact(int depth) {
        const State before = current_;
        const int changes = changes_;
        const std::vector<std::size_t> held = held_;
        actrTransactionManager->startTransaction();
        for (int i = below(4); i > 0; --i)
            edit();
        if (depth < 3 && below(2) == 0)
            transact(depth + 1);
        if (below(2) == 0) {
            EXPECT_EQ(actrTransactionManager->abortTransaction(), Acad::eOk);
            current_ = before;
            changes_ = changes;
            held_ = held;
        } else {
            EXPECT_EQ(actrTransactionManager->endTransaction(), Acad::eOk);
            if (depth == 0)
                held_.clear();
        }
        if (depth == 0) {
            ASSERT_EQ(read(), current_);
        }
    }

    /// Edits in one step: some changes, transactions among them.
    void step() {
        const State before = current_;
        changes_ = 0;
        const bool groups = below(3) == 0;
        if (groups)
            zuhost::beginUndoGroup(*drawing);
        else
            drawing->startUndoRecord();
        for (int i = below(4); i > 0; --i) {
            if (groups && below(2) == 0)
                drawing->startUndoRecord(); // has no effect in a group
            if (below(3) == 0)
                transact(0);
            else
                edit();
        }
        if (groups)
            zuhost::endUndoGroup(*drawing);
        if (changes_ > 0)
            undo_.push_back(before);
    }
    bool undoOne() {
        if (undo_.empty())
            return false;
        redo_.push_back(current_);
        current_ = undo_.back();
        undo_.pop_back();
        while (!marks_.empty() && marks_.back() > undo_.size())
            marks_.pop_back();
        return true;
    }

    std::mt19937 random_{17}; // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
    State current_;
    State base_;
    std::vector<State> undo_;
    std::vector<State> redo_;
    std::vector<std::size_t> marks_;
    std::vector<std::size_t> held_; ///< Open in a transaction.
    int changes_ = 0;               ///< Of the current step, without those that were aborted.
};

} // namespace

TEST_F(UndoModel, EachStepIsTakenBackAndPutBackAsAWhole) {
    for (int round = 0; round < 600; ++round) {
        SCOPED_TRACE(round);
        switch (below(6)) {
        case 0:
            if (!undo_.empty()) { // below are changes of the fixture
                EXPECT_EQ(drawing->undo(), Acad::eOk);
                undoOne();
            }
            break;
        case 1: {
            const bool canRedo = !redo_.empty();
            EXPECT_EQ(zuhost::redo(*drawing), canRedo ? Acad::eOk : Acad::eUndoOperationNotAvailable);
            if (canRedo) {
                undo_.push_back(current_);
                current_ = redo_.back();
                redo_.pop_back();
            }
            break;
        }
        case 2:
            if (below(3) == 0) {
                zuhost::setUndoMark(*drawing);
                marks_.push_back(undo_.size());
            }
            break;
        case 3:
            if (below(4) == 0 && marks_.size() > 1) {
                EXPECT_EQ(zuhost::isAtUndoMark(*drawing), marks_.back() == undo_.size());
                const std::size_t mark = marks_.back();
                EXPECT_TRUE(zuhost::undoToMark(*drawing));
                while (undo_.size() > mark)
                    undoOne();
                marks_.pop_back();
            }
            break;
        default:
            step();
        }
        ASSERT_EQ(zuhost::hasUndoMark(*drawing), !marks_.empty());
        ASSERT_EQ(read(), current_);
    }
    EXPECT_GT(undo_.size(), 20U);
    while (!undo_.empty()) {
        EXPECT_EQ(drawing->undo(), Acad::eOk);
        undoOne();
        ASSERT_EQ(read(), current_);
    }
    EXPECT_EQ(current_, base_);
}
