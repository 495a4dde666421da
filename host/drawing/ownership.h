#pragma once

#include "drawing_state.h"

namespace zuhost {

/// What the scan learns of an object's owner, for `resolveOwners`.
struct OwnerHint {
    std::uint64_t handle = 0; ///< Of code 330; 0 when there is none.
    bool inPaperSpace = false;
};

/// Sets the owners of all stubs that have none yet from the hints (one for each stub). Where the drawing
/// names no owner, entries belong to their TABLE, and entities to their block: to its BLOCK_RECORD, or its
/// BLOCK in drawings that have no block records.
void resolveOwners(DrawingState& state, const std::vector<OwnerHint>& hints);

} // namespace zuhost
