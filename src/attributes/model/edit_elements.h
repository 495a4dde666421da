#pragma once

#include "attributes/model/shown_items.h"

#include <zucomn/model/attributes.h>

namespace zu {

/// As zucomn::editAttributes, with the values of a property list.
[[nodiscard]] std::vector<zucomn::EditedElement> editElements(std::span<const AcDbObjectId> elements,
                                                              std::span<const ShownItem> values);

} // namespace zu
