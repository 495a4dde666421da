#pragma once

#include <QLineEdit>

#include <algorithm>

namespace zuhost {

/// Selects the characters from `start` up to `end`, exclusive: to the end of the text when `end` is negative,
/// none when `start` is.
inline void selectText(QLineEdit* line, int start, int end) {
    if (line == nullptr)
        return;
    if (start < 0)
        return line->deselect();
    const int length = static_cast<int>(line->text().size());
    const int first = std::min(start, length);
    const int last = end < 0 ? length : std::min(end, length);
    line->setSelection(first, last - first);
}

} // namespace zuhost
