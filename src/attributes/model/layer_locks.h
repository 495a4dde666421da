#pragma once

#include <afxstr.h>
#include <dbid.h>

#include <map>

namespace zu {

/// Caches which layers are locked, so that a batch of entities opens each layer once. Create one per batch:
/// the cache does not follow later changes.
class LayerLocks {
public:
    /// Returns the name of the entity's layer if that is locked; else, and for an entity that cannot be
    /// opened, an empty text.
    [[nodiscard]] const CString& lockedLayer(AcDbObjectId entity);

private:
    std::map<AcDbObjectId, CString> names_; ///< By layer; empty for unlocked layers.
};

} // namespace zu
