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
///
/// Section drawings place an element by its mounting height, the value "S401". Once written it is read as a
/// number; how many of the changed entities have one that is no number is told on the command line, so that
/// the user knows that those can't be placed.
///
/// The progress meter shows how far the work is. Its time grows with the number of entities.
int writeBack(std::span<const AcDbObjectId> entities, std::span<const ShownItem> items,
              const ParameterIndex& parameters);

} // namespace zu
