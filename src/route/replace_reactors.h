#pragma once

#include <dbid.h>

namespace zu {

/// Tell the registered replace reactors, in the order of their registration.
void tellErased(AcDbObjectId id);
void tellTerminated(AcDbObjectId id, const AcDbObjectIdArray& newIds);

} // namespace zu
