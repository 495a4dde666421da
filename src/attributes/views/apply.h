#pragma once

#include "attributes/model/shown_items.h"

#include <dbid.h>

namespace zu {

class AttributePane;

/// Shows the user the name of the element's layer when that is locked; true then. False for an element that
/// can't be opened.
bool warnWhenLocked(AcDbObjectId element);

/// Writes those values of a property list that may be written to the elements and reports the outcome: a
/// message box for each element on a locked layer, a line on the command line with the number of changed
/// elements whose mounting height ("S401") is no number. Sends the host the command that updates dependent
/// section drawings. Returns the number of changed elements.
int writeBack(std::span<const AcDbObjectId> elements, std::span<const ShownItem> items,
              const ParameterIndex& parameters);

/// Writes the pane's values back by the parameter table as its file is now; without the table nothing is
/// written. Returns the number of changed elements.
int applyToEntities(const AttributePane& pane, std::span<const AcDbObjectId> elements);

} // namespace zu
