#pragma once

class AcEdCommandStack;

namespace zuhost {

/// Registers the host's own commands U, UNDO, REDO and MREDO. They work on the current document's drawing.
/// UNDO and MREDO take the number of steps from the word after them, 1 when it is no number. "UNDO BEGIN" and
/// "UNDO END" make one step of the commands between them; an undo ends the group as well. Marks and the
/// control of undo recording are not supported.
void addUndoCommands(AcEdCommandStack& stack);

/// The life of a running command: what it changes in the current document's drawing is one undo step. A
/// command that runs within another one belongs to that one's step.
class CommandUndoStep {
public:
    CommandUndoStep();
    ~CommandUndoStep();
    CommandUndoStep(const CommandUndoStep&) = delete;
    CommandUndoStep& operator=(const CommandUndoStep&) = delete;
};

} // namespace zuhost
