#pragma once

#include "drawing_state.h"

namespace zuhost {

/// What the records of an object state about its owner.
struct OwnerHint {
    std::uint64_t handle = 0; ///< Group code 330; 0 when missing.
    bool inPaperSpace = false;
};

/// Sets the owner of every stub without one from its hint (one for each stub, in the same order). Without a
/// named owner, entries belong to their TABLE, and entities to the BLOCK_RECORD of their block, or to its
/// BLOCK in drawings without block records.
void resolveOwners(DrawingState& state, const std::vector<OwnerHint>& hints);

} // namespace zuhost
