#include "accmd.h"
#include "acdocman.h"
#include "arxutil.h"
#include "dbapserv.h"
#include "sample_drawing.h"
#include "zuhost/command_line.h"
#include "zuhost/text_codec.h"
#include <zuhost/input.h>

namespace {

/// The drawing of the fixture: commands are plain functions and have no other access to it.
AcDbDatabase* edited = nullptr;

AcDbObjectId duct() {
    AcDbObjectId found;
    edited->getAcDbObjectId(found, false, AcDbHandle(0x114));
    return found;
}

void paint() {
    const AcDbObjectPointer<AcDbEntity> entity(duct(), AcDb::kForWrite);
    const int color = entity->colorIndex() % 256;
    entity->setColorIndex(static_cast<Adesk::UInt16>(color + 2));
    entity->setColorIndex(static_cast<Adesk::UInt16>(color + 1));
}

void eraseDuct() {
    AcDbObjectPointer<AcDbEntity>(duct(), AcDb::kForWrite)->erase();
}

void drawLine() {
    AcDbBlockTable* blocks = nullptr;
    edited->getBlockTable(blocks);
    AcDbObjectId space;
    blocks->getAt(ACDB_MODEL_SPACE, space);
    blocks->close();
    auto* const line = new AcDbLine({0, 0, 0}, {1, 1, 0});
    AcDbObjectPointer<AcDbBlockTableRecord>(space, AcDb::kForWrite)->appendAcDbEntity(line);
    line->close();
}

void paintTwice() {
    paint();
    ApiComn_sendCommand(L"PAINT", 1, 1, 1);
}

class UndoCommands : public SampleDrawing {
protected:
    UndoCommands() {
        edited = drawing.get();
        acdbHostApplicationServices()->setWorkingDatabase(edited);
        acedRegCmds->addCommand(L"EDITS", L"PAINT", nullptr, ACRX_CMD_MODAL, paint);
        acedRegCmds->addCommand(L"EDITS", L"PAINT2", nullptr, ACRX_CMD_MODAL, paintTwice);
        acedRegCmds->addCommand(L"EDITS", L"ERASE", nullptr, ACRX_CMD_MODAL, eraseDuct);
        acedRegCmds->addCommand(L"EDITS", L"LINE", nullptr, ACRX_CMD_MODAL, drawLine);
    }
    ~UndoCommands() override {
        acedRegCmds->removeGroup(L"EDITS");
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }

    /// Runs the commands and returns what they print.
    std::wstring type(const wchar_t* commands) const {
        const zuhost::CommandLineObserver printed;
        acDocManager->sendStringToExecute(acDocManager->curDocument(), commands);
        zuhost::runPendingCommands();
        return printed.text();
    }

    /// Returns "x" for an erased duct, else its colour; then "+" for each entity added to the drawing.
    [[nodiscard]] std::string state() const {
        const AcDbObjectPointer<AcDbEntity> entity(duct(), AcDb::kForRead, true);
        std::string text = entity->isErased() ? "x" : std::to_string(entity->colorIndex() % 256);
        return text.append(entities() + (entity->isErased() ? 1 : 0) - atStart_, '+');
    }

private:
    [[nodiscard]] std::size_t entities() const {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(blockId(*drawing, ACDB_MODEL_SPACE));
        AcDbBlockTableRecordIterator* iterator = nullptr;
        space->newIterator(iterator);
        const std::unique_ptr<AcDbBlockTableRecordIterator> all(iterator);
        std::size_t count = 0;
        for (; !all->done(); all->step())
            ++count;
        return count;
    }

    std::size_t atStart_ = entities();
};

} // namespace

TEST_F(UndoCommands, UndoAndRedoSteps) {
    const std::wstring noUndo = L"Nothing to undo.\n";
    const std::wstring noControl = L"Undo is disabled. UNDO CONTROL ALL enables it.\n";
    const std::wstring noRedo = L"Nothing to redo.\n";
    const std::tuple<const wchar_t*, const char*, std::wstring> cases[] = {
        {L"U\n", "0", noUndo},
        {L"REDO\n", "0", noRedo},
        {L"PAINT PAINT U\n", "1", L""},
        {L"PAINT PAINT _u '_.UNDO\n\n", "0", L""},
        {L"PAINT PAINT PAINT UNDO 2 PAINT\n", "2", L""},
        {L"PAINT PAINT UNDO 9\n", "0", L"Everything has been undone.\n"},
        {L"PAINT UNDO 0 U\n", "0", L"The number of steps must be 1 or more.\n"},
        {L"PAINT PAINT UNDO PAINT\n", "2", L""},
        {L"PAINT U REDO REDO\n", "1", noRedo},
        {L"PAINT PAINT PAINT UNDO 3 MREDO 2\n", "2", L""},
        {L"PAINT U U MREDO 5\n", "1", noUndo + L"Everything has been redone.\n"},
        {L"PAINT PAINT U PAINT REDO U U U\n", "0", noRedo + noUndo},
        {L"PAINT UNDO Begin PAINT PAINT _.UNDO _E U\n", "1", L""},
        {L"PAINT UNDO BE PAINT UNDO END PAINT UNDO 2 REDO\n", "2", L""},
        {L"UNDO BE PAINT PAINT U PAINT PAINT U\n", "1", L""},
        {L"PAINT UNDO CONTROL\n", "1", L""},
        {L"PAINT UNDO CONTROL NONE PAINT U UNDO 2\n", "2", noControl + noControl},
        {L"PAINT UNDO C _N PAINT UNDO CONTROL ALL PAINT U U\n", "2", noUndo},
        {L"PAINT UNDO MARK PAINT UNDO CONTROL One U U\n", "1", noUndo},
        {L"UNDO C O PAINT UNDO M PAINT LINE UNDO BACK\n", "2", L"Everything has been undone.\n"},
        {L"PAINT UNDO AUTO OFF PAINT U UNDO A\n", "1", L""},
        {L"UNDO C MANY\n", "0", L"All, None or One is required.\nUnknown command \"MANY\".\n"},
        {L"PAINT UNDO MARK PAINT PAINT UNDO BACK\n", "1", L""},
        {L"PAINT UNDO M PAINT UNDO M UNDO B PAINT UNDO Back MREDO 9\n", "3",
         L"Everything has been redone.\n"},
        {L"PAINT PAINT UNDO BACK UNDO BACK\n", "0",
         L"Everything has been undone.\n" + std::wstring(L"Nothing to undo.\n")},
        {L"PAINT UNDO M PAINT PAINT UNDO 3\n", "1", L"Mark encountered.\n"},
        {L"PAINT UNDO M PAINT U U PAINT PAINT UNDO BACK\n", "0",
         L"Mark encountered.\nEverything has been undone.\n"},
        {L"UNDO BE PAINT UNDO MARK PAINT UNDO BACK PAINT U\n", "1", L""},
        {L"ERASE\n", "x", L""},
        {L"PAINT ERASE U\n", "1", L""},
        {L"ERASE U U REDO\n", "x", noUndo},
        {L"LINE LINE U\n", "0+", L""},
        {L"LINE PAINT LINE ERASE UNDO 4\n", "0", L""},
        {L"LINE PAINT LINE ERASE UNDO 4 MREDO 3\n", "1++", L""},
    };
    for (const auto& [commands, expected, printed] : cases) {
        ASSERT_EQ(drawing->dxfIn(samplePath(L"office-floor.dxf").c_str()), Acad::eOk); // nothing to undo
        EXPECT_EQ(type(commands), printed) << zuhost::toUtf8(commands);
        EXPECT_EQ(state(), expected) << zuhost::toUtf8(commands);
    }
}

TEST_F(UndoCommands, StepsAreOuterCommandsAndTheChangesBetweenCommands) {
    type(L"PAINT2\n");
    EXPECT_EQ(state(), "2");
    type(L"U\n");
    EXPECT_EQ(state(), "0");
    type(L"PAINT\n");
    paint();
    type(L"PAINT U\n");
    EXPECT_EQ(state(), "2");
    type(L"U\n");
    EXPECT_EQ(state(), "1");
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_EQ(type(L"U\n"), L"Nothing to undo.\n");
    EXPECT_EQ(state(), "1");
}
