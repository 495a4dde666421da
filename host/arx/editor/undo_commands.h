#pragma once

class AcEdCommandStack;

namespace zuhost {

/// Registers the commands U, UNDO, REDO and MREDO, which work on the current document's drawing. UNDO and
/// MREDO read the number of steps from the next word, 1 if it is not a number. "UNDO BEGIN" and "UNDO END"
/// group the commands between them into one step; an undo ends the group as well. "UNDO MARK" marks the
/// current state; "UNDO BACK" undoes everything since the last mark and removes the mark, or undoes
/// everything without one. Other undos stop at a mark; the next one continues past it. UNDO AUTO and UNDO
/// CONTROL are not supported.
void addUndoCommands(AcEdCommandStack& stack);

/// Lives while a command runs: its changes of the current document's drawing become one undo step. A nested
/// command belongs to the step of the outer one.
class CommandUndoStep {
public:
    CommandUndoStep();
    ~CommandUndoStep();
    CommandUndoStep(const CommandUndoStep&) = delete;
    CommandUndoStep& operator=(const CommandUndoStep&) = delete;
};

} // namespace zuhost
