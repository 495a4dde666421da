#pragma once

class AcDbDatabase;

/// Undo groups and marks of a database, for the editor's commands; single steps are AcDbDatabase's own.
namespace zuhost {

/// Makes one undo step of everything up to the end of the group.
void beginUndoGroup(AcDbDatabase& database);
void endUndoGroup(AcDbDatabase& database);

/// Marks the present state. Undoing work from before a mark removes the mark.
void setUndoMark(AcDbDatabase& database);
[[nodiscard]] bool hasUndoMark(const AcDbDatabase& database);
/// True when all work since the last mark is undone.
[[nodiscard]] bool isAtUndoMark(const AcDbDatabase& database);
/// Undoes the work since the last mark and removes the mark; without a mark undoes everything. False when
/// there is neither a mark nor work.
bool undoToMark(AcDbDatabase& database);

} // namespace zuhost
