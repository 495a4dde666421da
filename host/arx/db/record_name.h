#pragma once

#include "object_access.h"

namespace zuhost {

/// Reads the name of a symbol table's record; fails when the object is of another class or can't be opened.
template <typename Record>
Acad::ErrorStatus readRecordName(AcDbObjectId id, std::wstring& name) {
    Record* record = nullptr;
    const Acad::ErrorStatus status = acdbOpenObject(record, id, AcDb::kForRead);
    if (status != Acad::eOk)
        return status;
    name = ObjectAccess::name(*record);
    return record->close();
}

} // namespace zuhost
