#include "undo_commands.h"

#include "accmd.h"
#include "acdocman.h"
#include "acutads.h"
#include "dbmain.h"

namespace {

constexpr const wchar_t* kGroup = L"HOST_UNDO";

struct Direction {
    Acad::ErrorStatus (AcDbDatabase::*step)();
    const wchar_t* nothing;
    const wchar_t* everything;
};

constexpr Direction kBack{&AcDbDatabase::undo, L"Nothing to undo.\n", L"Everything has been undone.\n"};
constexpr Direction kForth{&AcDbDatabase::redo, L"Nothing to redo.\n", L"Everything has been redone.\n"};

AcDbDatabase* currentDrawing() {
    return acDocManager->curDocument()->database();
}

void go(const Direction& direction, int steps) {
    AcDbDatabase* const drawing = currentDrawing();
    if (steps < 1) {
        acutPrintf(L"The number of steps must be 1 or more.\n");
        return;
    }
    for (int done = 0; done < steps; ++done) {
        if (drawing != nullptr && (drawing->*direction.step)() == Acad::eOk)
            continue;
        acutPrintf(L"%s", done == 0 ? direction.nothing : direction.everything);
        return;
    }
}

void undoOne() {
    go(kBack, 1);
}
void undoSeveral() {
    go(kBack, zuhost::takePendingNumber().value_or(1));
}
void redoOne() {
    go(kForth, 1);
}
void redoSeveral() {
    go(kForth, zuhost::takePendingNumber().value_or(1));
}

int& runningCommands() {
    static int count = 0;
    return count;
}

void startStep() {
    if (AcDbDatabase* const drawing = currentDrawing())
        drawing->startUndoRecord();
}

} // namespace

namespace zuhost {

void addUndoCommands(AcEdCommandStack& stack) {
    stack.addCommand(kGroup, L"U", nullptr, ACRX_CMD_MODAL, undoOne);
    stack.addCommand(kGroup, L"UNDO", nullptr, ACRX_CMD_MODAL, undoSeveral);
    stack.addCommand(kGroup, L"REDO", nullptr, ACRX_CMD_MODAL, redoOne);
    stack.addCommand(kGroup, L"MREDO", nullptr, ACRX_CMD_MODAL, redoSeveral);
}

CommandUndoStep::CommandUndoStep() {
    if (runningCommands()++ == 0)
        startStep();
}

CommandUndoStep::~CommandUndoStep() {
    if (--runningCommands() == 0)
        startStep(); // what is changed after the command is no part of it
}

} // namespace zuhost
