#pragma once

#include "attributes/model/shown_items.h"

#include <dbid.h>

namespace zu {

class AttributePane;

/// Shows a message box with the name of the element's layer if that is locked. Returns true if it is locked,
/// false otherwise and for an element that cannot be opened.
bool warnIfLocked(AcDbObjectId element);

/// Writes the writable values of a property list to the elements, then sends the host the command that
/// updates dependent section drawings. Shows a message box for each element on a locked layer, and reports on
/// the command line how many changed elements have a mounting height ("S401") that is not a number. Returns
/// the number of changed elements.
int writeBack(std::span<const AcDbObjectId> elements, std::span<const ShownItem> items,
              const ParameterIndex& parameters);

/// Writes the pane's changed values to the elements, using the parameter table as its file is now; without
/// the table it writes those of the items that the pane lets the user edit. Returns the number of changed
/// elements.
int applyToEntities(const AttributePane& pane, std::span<const AcDbObjectId> elements);

} // namespace zu
