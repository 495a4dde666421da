#pragma once

#include "attributes/model/write_back.h"

namespace zu {

class AttributePane;

/// Writes the pane's changed values to the elements, using the parameter table as its file is now; without
/// the table it writes those of the items that the pane lets the user edit.
EditCounts applyToEntities(const AttributePane& pane, std::span<const AcDbObjectId> elements,
                           LockReport locks = LockReport::messageBoxes);

} // namespace zu
