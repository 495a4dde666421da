#pragma once

#include "shown_items.h"

#include <dbid.h>

namespace zu {

/// Shows a message box with the name of the element's layer if that is locked. Returns true if it is locked,
/// false otherwise and for an element that cannot be opened.
bool warnIfLocked(AcDbObjectId element);

/// How an edit reports the elements on locked layers: by a message box for each, or only by the count that it
/// returns.
enum class LockReport { messageBoxes, count };

/// The elements that an edit changed and those that it skipped, on locked layers or because of a failure.
struct EditCounts {
    int changed = 0;
    int skipped = 0;
};

/// Writes the writable values of a property list to the elements, then sends the host the command that
/// updates dependent section drawings. Reports on the command line how many changed elements have a mounting
/// height ("S401") that is not a number.
EditCounts writeBack(std::span<const AcDbObjectId> elements, std::span<const ShownItem> items,
                     const ParameterIndex& parameters, LockReport locks = LockReport::messageBoxes);

/// Returns the counts in words, for the status line.
[[nodiscard]] CString describe(const EditCounts& counts);

} // namespace zu
