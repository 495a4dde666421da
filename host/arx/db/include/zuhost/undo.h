#pragma once

#include <adesk.h>
#include <zuhost/platform/export.h>

class AcDbDatabase;

/// Undo groups, marks and redo of a database, for the editor's commands; AcDbDatabase undoes single steps.
namespace zuhost {

/// What the user has set by UNDO CONTROL and UNDO AUTO; that of a drawing that was opened just now has the
/// initial values.
struct UndoControl {
    bool isEnabled = true;  ///< Otherwise only what transactions change is recorded, until they end.
    bool onlyOne = false;   ///< Keeps the last step only, and no marks.
    bool autoGroups = true; ///< Kept only: commands are steps of their own anyway.
};
[[nodiscard]] ZUHOST_API UndoControl undoControl(const AcDbDatabase& database);
/// Drops the recorded steps that the control does not allow.
ZUHOST_API void setUndoControl(AcDbDatabase& database, UndoControl control);

/// Begins a group: all changes up to its end form one undo step.
ZUHOST_API void beginUndoGroup(AcDbDatabase& database);
ZUHOST_API void endUndoGroup(AcDbDatabase& database);

/// Redoes the step that was undone last; eUndoOperationNotAvailable when there is none.
ZUHOST_API Acad::ErrorStatus redo(AcDbDatabase& database);

/// Marks the current state. Undoing a step before the mark removes the mark.
ZUHOST_API void setUndoMark(AcDbDatabase& database);
[[nodiscard]] ZUHOST_API bool hasUndoMark(const AcDbDatabase& database);
/// Returns true when no step is left after the last mark.
[[nodiscard]] ZUHOST_API bool isAtUndoMark(const AcDbDatabase& database);
/// Undoes all steps after the last mark and removes the mark; without a mark undoes all steps. False when
/// there is neither a mark nor a step.
ZUHOST_API bool undoToMark(AcDbDatabase& database);

} // namespace zuhost
