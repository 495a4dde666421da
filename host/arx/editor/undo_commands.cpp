#include "undo_commands.h"

#include "accmd.h"
#include "acdocman.h"
#include "acutads.h"
#include "dbmain.h"
#include "zuhost/undo.h"

#include "zuhost/input.h"
#include <zuhost/text_codec.h>

#include <charconv>
#include <functional>

namespace {

constexpr const wchar_t* kGroup = L"HOST_UNDO";

struct Direction {
    Acad::ErrorStatus (*step)(AcDbDatabase& drawing);
    const wchar_t* noSteps;        ///< Printed when the first step fails.
    const wchar_t* noFurtherSteps; ///< Printed when a later one fails.
    bool stopsAtMarks;
};

Acad::ErrorStatus undoStep(AcDbDatabase& drawing) {
    return drawing.undo();
}

constexpr Direction kUndo{&undoStep, L"Nothing to undo.\n", L"Everything has been undone.\n", true};
constexpr Direction kRedo{&zuhost::redo, L"Nothing to redo.\n", L"Everything has been redone.\n", false};

AcDbDatabase* currentDrawing() {
    return acDocManager->curDocument()->database();
}

bool isDisabled() {
    const AcDbDatabase* const drawing = currentDrawing();
    return drawing != nullptr && !zuhost::undoControl(*drawing).isEnabled;
}

void runSteps(const Direction& direction, int steps) {
    AcDbDatabase* const drawing = currentDrawing();
    if (isDisabled()) {
        acutPrintf(L"Undo is disabled. UNDO CONTROL ALL enables it.\n");
        return;
    }
    if (steps < 1) {
        acutPrintf(L"The number of steps must be 1 or more.\n");
        return;
    }
    for (int done = 0; done < steps; ++done) {
        if (drawing == nullptr || direction.step(*drawing) != Acad::eOk) {
            acutPrintf(L"%s", done == 0 ? direction.noSteps : direction.noFurtherSteps);
            return;
        }
        if (direction.stopsAtMarks && zuhost::isAtUndoMark(*drawing)) {
            acutPrintf(L"Mark encountered.\n");
            return;
        }
    }
}

/// Consumes the next word if it is a number and returns it; otherwise returns 1.
int takeStepCount() {
    const std::string word = zuhost::toUtf8(zuhost::pendingWord());
    int number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (word.empty() || error != std::errc() || end != word.data() + word.size())
        return 1;
    zuhost::takePendingWord();
    return number;
}

/// Consumes the next word if it is the option's name or an abbreviation of at least `minLength` characters.
bool takeOption(std::wstring_view name, std::size_t minLength) {
    const std::wstring word = zuhost::pendingWord();
    if (word.size() < minLength || !name.starts_with(word))
        return false;
    zuhost::takePendingWord();
    return true;
}

void setControl(const std::function<void(zuhost::UndoControl&)>& change) {
    AcDbDatabase* const drawing = currentDrawing();
    if (drawing == nullptr)
        return;
    zuhost::UndoControl control = zuhost::undoControl(*drawing);
    change(control);
    zuhost::setUndoControl(*drawing, control);
}

/// Enter stands for ON.
void setAuto() {
    const bool off = takeOption(L"OFF", 2);
    if (!off && !takeOption(L"ON", 2) && !zuhost::pendingWord().empty())
        acutPrintf(L"ON or OFF is required.\n");
    else
        setControl([off](zuhost::UndoControl& control) { control.autoGroups = !off; });
}

/// Enter stands for All.
void setControlOption() {
    const bool none = takeOption(L"NONE", 1);
    const bool one = !none && takeOption(L"ONE", 1);
    if (!none && !one && !takeOption(L"ALL", 1) && !zuhost::pendingWord().empty())
        return static_cast<void>(acutPrintf(L"All, None or One is required.\n"));
    setControl([&](zuhost::UndoControl& control) {
        control.isEnabled = !none;
        control.onlyOne = one;
    });
}

void setGroup(bool open) {
    if (AcDbDatabase* const drawing = currentDrawing())
        open ? zuhost::beginUndoGroup(*drawing) : zuhost::endUndoGroup(*drawing);
}

void setMark() {
    if (AcDbDatabase* const drawing = currentDrawing())
        zuhost::setUndoMark(*drawing);
}

void undoToLastMark() {
    AcDbDatabase* const drawing = currentDrawing();
    const bool marked = drawing != nullptr && zuhost::hasUndoMark(*drawing);
    if (drawing == nullptr || !zuhost::undoToMark(*drawing))
        acutPrintf(L"%s", kUndo.noSteps);
    else if (!marked)
        acutPrintf(L"%s", kUndo.noFurtherSteps);
}

void undoOne() {
    runSteps(kUndo, 1);
}
void undoCommand() {
    if (takeOption(L"BEGIN", 2))
        setGroup(true);
    else if (takeOption(L"END", 1))
        setGroup(false);
    else if (takeOption(L"MARK", 1))
        setMark();
    else if (takeOption(L"BACK", 1))
        undoToLastMark();
    else if (takeOption(L"AUTO", 1))
        setAuto();
    else if (takeOption(L"CONTROL", 1))
        setControlOption();
    else
        runSteps(kUndo, takeStepCount());
}
void redoOne() {
    runSteps(kRedo, 1);
}
void redoMultiple() {
    runSteps(kRedo, takeStepCount());
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
    stack.addCommand(kGroup, L"UNDO", nullptr, ACRX_CMD_MODAL, undoCommand);
    stack.addCommand(kGroup, L"REDO", nullptr, ACRX_CMD_MODAL, redoOne);
    stack.addCommand(kGroup, L"MREDO", nullptr, ACRX_CMD_MODAL, redoMultiple);
}

CommandUndoStep::CommandUndoStep() {
    if (runningCommands()++ == 0)
        startStep();
}

CommandUndoStep::~CommandUndoStep() {
    if (--runningCommands() == 0)
        startStep(); // later changes are not part of the command's step
}

} // namespace zuhost
