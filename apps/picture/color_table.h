#pragma once

#include <QColor>

namespace zu::preview {

/// The colour of a colour number, 1 to 255. Number 7 is black on a light background and white on a dark one;
/// on a light background bright colours are darkened, so that a yellow line can be seen.
[[nodiscard]] QColor colorOf(int number, bool dark);

} // namespace zu::preview
