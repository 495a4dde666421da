#pragma once

#include <dbid.h>

namespace zu {

/// Notify the registered replace reactors, in the order of their registration.
void notifyErased(AcDbObjectId id);
void notifyTerminated(AcDbObjectId id, const AcDbObjectIdArray& newIds);

} // namespace zu
