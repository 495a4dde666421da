#pragma once

#include <QLineEdit>

namespace zuhost {

/// Selects characters of a line of text; (0, -1) selects all.
inline void selectText(QLineEdit* line, int start, int end) {
    if (line == nullptr)
        return;
    if (start == 0 && end < 0)
        line->selectAll();
    else
        line->setSelection(start, end - start);
}

} // namespace zuhost
