#include "zuhost/undo.h"

#include "database_core.h"

namespace zuhost {

void beginUndoGroup(AcDbDatabase& database) {
    database.core().undo.beginGroup();
}

void endUndoGroup(AcDbDatabase& database) {
    database.core().undo.endGroup();
}

void setUndoMark(AcDbDatabase& database) {
    database.core().undo.mark();
}

bool hasUndoMark(const AcDbDatabase& database) {
    return database.core().undo.hasMark();
}

bool isAtUndoMark(const AcDbDatabase& database) {
    return database.core().undo.atMark();
}

bool undoToMark(AcDbDatabase& database) {
    DatabaseCore& core = database.core();
    return core.undo.undoToMark(core);
}

} // namespace zuhost
