#pragma once

#include "shown_items.h"

#include <zucomn/model/attributes.h>

namespace zu {

/// Works as zucomn::editAttributes, with the items of a property list.
[[nodiscard]] std::vector<zucomn::EditedElement> editElements(std::span<const AcDbObjectId> elements,
                                                              std::span<const ShownItem> values);

} // namespace zu
