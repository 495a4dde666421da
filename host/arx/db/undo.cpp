#include "zuhost/undo.h"

#include "database_core.h"

namespace zuhost {

UndoControl undoControl(const AcDbDatabase& database) {
    return coreOf(database).undo.control();
}

void setUndoControl(AcDbDatabase& database, UndoControl control) {
    coreOf(database).undo.setControl(control);
}

void beginUndoGroup(AcDbDatabase& database) {
    coreOf(database).undo.beginGroup();
}

void endUndoGroup(AcDbDatabase& database) {
    coreOf(database).undo.endGroup();
}

void setUndoMark(AcDbDatabase& database) {
    coreOf(database).undo.mark();
}

bool hasUndoMark(const AcDbDatabase& database) {
    return coreOf(database).undo.hasMark();
}

bool isAtUndoMark(const AcDbDatabase& database) {
    return coreOf(database).undo.atMark();
}

Acad::ErrorStatus redo(AcDbDatabase& database) {
    DatabaseCore& core = coreOf(database);
    return core.undo.redo(core) ? Acad::eOk : Acad::eUndoOperationNotAvailable;
}

bool undoToMark(AcDbDatabase& database) {
    DatabaseCore& core = coreOf(database);
    return core.undo.undoToMark(core);
}

} // namespace zuhost
