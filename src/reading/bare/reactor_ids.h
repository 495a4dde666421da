#pragma once

#include "route/small_set.h"

#include <dbmain.h>

#include <vector>

/// Persistent reactors, on the interface alone.
namespace zu {

/// Replaces the ids by the object's persistent reactors in the drawing, each once, in their order.
inline void readPersistentReactors(const AcDbObject& object, std::vector<AcDbObjectId>& ids) {
    ids.clear();
    const AcDbVoidPtrArray* const reactors = object.reactors();
    if (reactors == nullptr)
        return;
    SmallSet<AcDbObjectId> seen;
    for (const void* const reactor : *reactors)
        if (const AcDbObjectId id = acdbPersistentReactorObjectId(reactor); !id.isNull() && seen.insert(id))
            ids.push_back(id);
}

} // namespace zu
