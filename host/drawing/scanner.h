#pragma once

#include "drawing_state.h"

namespace zuhost {

/// Fills the state from its bytes; nullopt, or why the drawing cannot be opened (the state is then of no
/// use).
[[nodiscard]] std::optional<DocumentError> scanDrawing(DrawingState& state);

} // namespace zuhost
