#pragma once

#include <dbobjptr.h>

namespace zu::app {

/// Opens an object for a change that says how it went.
template <typename T, typename Operation>
bool change(AcDbObjectId id, Operation operation) {
    const AcDbObjectPointer<T> object(id, AcDb::kForWrite);
    return object.openStatus() == Acad::eOk && operation(*object.object()) == Acad::eOk;
}

} // namespace zu::app
