#pragma once

#include "attributes/model/shown_items.h"

#include <dbid.h>

#include <span>

namespace zu {

/// The items of entities' "ZU_ATTR" records; entities without one are passed over. Shows the host's progress
/// meter while it reads many.
[[nodiscard]] std::vector<ShownItem> shownItemsOf(std::span<const AcDbObjectId> entities);

} // namespace zu
