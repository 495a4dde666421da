#pragma once

#include "attributes/model/shown_items.h"

#include <dbid.h>

#include <span>

namespace zu {

/// Returns the items of the entities' attribute records; entities without one are skipped. Shows the host's
/// progress meter meanwhile.
[[nodiscard]] std::vector<ShownItem> shownItemsOf(std::span<const AcDbObjectId> entities);

} // namespace zu
