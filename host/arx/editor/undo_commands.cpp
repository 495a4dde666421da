#include "undo_commands.h"

#include "accmd.h"
#include "acdocman.h"
#include "acutads.h"
#include "dbmain.h"
#include "zuhost/undo.h"

#include <zuhost/text_codec.h>

#include <charconv>

namespace {

constexpr const wchar_t* kGroup = L"HOST_UNDO";

struct Direction {
    Acad::ErrorStatus (AcDbDatabase::*step)();
    const wchar_t* nothing;
    const wchar_t* everything;
    bool stopsAtMarks;
};

constexpr Direction kBack{&AcDbDatabase::undo, L"Nothing to undo.\n", L"Everything has been undone.\n", true};
constexpr Direction kForth{&AcDbDatabase::redo, L"Nothing to redo.\n", L"Everything has been redone.\n",
                           false};

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
        if (drawing == nullptr || (drawing->*direction.step)() != Acad::eOk) {
            acutPrintf(L"%s", done == 0 ? direction.nothing : direction.everything);
            return;
        }
        if (direction.stopsAtMarks && zuhost::isAtUndoMark(*drawing)) {
            acutPrintf(L"Mark encountered.\n");
            return;
        }
    }
}

/// The word that follows as a number of steps; 1 when it is none.
int stepsAsked() {
    const std::string word = zuhost::toUtf8(zuhost::pendingWord());
    int number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (word.empty() || error != std::errc() || end != word.data() + word.size())
        return 1;
    zuhost::takePendingWord();
    return number;
}

/// An option by its name or the part of it that must be given.
bool takeOption(std::wstring_view name, std::size_t least) {
    const std::wstring word = zuhost::pendingWord();
    if (word.size() < least || !name.starts_with(word))
        return false;
    zuhost::takePendingWord();
    return true;
}

bool takeOtherOption() {
    return takeOption(L"AUTO", 1) || takeOption(L"CONTROL", 1);
}

void setGroup(bool open) {
    if (AcDbDatabase* const drawing = currentDrawing())
        open ? zuhost::beginUndoGroup(*drawing) : zuhost::endUndoGroup(*drawing);
}

void setMark() {
    if (AcDbDatabase* const drawing = currentDrawing())
        zuhost::setUndoMark(*drawing);
}

void goToMark() {
    AcDbDatabase* const drawing = currentDrawing();
    const bool marked = drawing != nullptr && zuhost::hasUndoMark(*drawing);
    if (drawing == nullptr || !zuhost::undoToMark(*drawing))
        acutPrintf(L"%s", kBack.nothing);
    else if (!marked)
        acutPrintf(L"%s", kBack.everything);
}

void undoOne() {
    go(kBack, 1);
}
void undoSeveral() {
    if (takeOption(L"BEGIN", 2))
        setGroup(true);
    else if (takeOption(L"END", 1))
        setGroup(false);
    else if (takeOption(L"MARK", 1))
        setMark();
    else if (takeOption(L"BACK", 1))
        goToMark();
    else if (takeOtherOption())
        acutPrintf(L"This option of UNDO is not supported.\n");
    else
        go(kBack, stepsAsked());
}
void redoOne() {
    go(kForth, 1);
}
void redoSeveral() {
    go(kForth, stepsAsked());
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
