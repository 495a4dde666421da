#pragma once

#include "shell/completion.h"

#include <string>
#include <vector>

namespace zu::app {

enum class DrawingWords { handles, attributeIds, groups, layers, blocks };

/// Returns words that name something in a drawing, each once and in its order; none when the drawing cannot
/// be read. The attribute ids are those of the first 1,000 elements.
[[nodiscard]] std::vector<Completion> drawingWords(const std::string& drawing, DrawingWords wanted);

} // namespace zu::app
