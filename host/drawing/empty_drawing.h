#pragma once

#include <string>

namespace zuhost {

/// Returns the bytes of a minimal valid drawing: R2018, UTF-8, standard tables, model and paper space, group,
/// layout, plot style and multiline style dictionaries.
[[nodiscard]] std::string emptyDrawing();

} // namespace zuhost
