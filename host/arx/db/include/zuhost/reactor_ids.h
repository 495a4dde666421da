#pragma once

#include <dbid.h>
#include <zuhost/platform/export.h>

#include <vector>

class AcDbObject;

namespace zuhost {

/// Replaces the ids by the object's persistent reactors in the drawing, each once, in their order. Returns
/// false when there are surplus entries, which `surplusReactors` returns.
ZUHOST_API bool readPersistentReactors(const AcDbObject& object, std::vector<AcDbObjectId>& ids);

} // namespace zuhost
