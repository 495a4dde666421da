#pragma once

#include "attributes/model/shown_items.h"

#include <dbid.h>

namespace zu {

/// True when the entity's layer is locked; the user is then told the layer's name. False for an entity that
/// can't be opened.
bool tellLockedLayer(AcDbObjectId entity);

/// Puts the values of the property list into the "ZU_ATTR" record of every entity, as one undo step of each
/// drawing, and lets the host bring dependent section drawings up to date. Entities on locked layers (told to
/// the user, one by one) and such that can't be opened stay as they are. Returns how many were changed.
int writeBack(std::span<const AcDbObjectId> entities, std::span<const ShownItem> items,
              const ParameterIndex& parameters);

} // namespace zu
