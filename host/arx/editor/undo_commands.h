#pragma once

class AcEdCommandStack;

namespace zuhost {

/// Registers the host's own commands U, UNDO, REDO and MREDO. They work on the current document's drawing.
/// UNDO and MREDO take the number of steps from the word after them, 1 when it is no number. "UNDO BEGIN" and
/// "UNDO END" make one step of the commands between them; an undo ends the group as well. "UNDO MARK"
/// marks how far the work has come, "UNDO BACK" takes back all since the last mark, which goes, or
/// everything; other undos stop where they reach a mark, the next one passes it. The control of undo
/// recording (AUTO, CONTROL) is not supported.
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
