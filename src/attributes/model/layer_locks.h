#pragma once

#include <afxstr.h>
#include <dbid.h>

#include <map>

namespace zu {

/// Which layers are locked, each asked once for all its entities. To be made anew for each job: it does not
/// learn of later changes.
class LayerLocks {
public:
    /// The name of the entity's layer when that is locked, else empty; also for an entity that can't be
    /// opened.
    [[nodiscard]] const CString& lockedLayer(AcDbObjectId entity);

private:
    std::map<AcDbObjectId, CString> names_; ///< By layer; empty for those not locked.
};

} // namespace zu
