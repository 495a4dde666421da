#pragma once

#include "shape.h"

namespace zu::picture {

/// Letters of a run that are written in one go.
struct TextPiece {
    QString text;
    double start = 0.0; ///< Along the baseline, in text space.
    double width = 0.0;
};

/// Returns a run as one piece; on a grid as one for each letter, in its column.
[[nodiscard]] std::vector<TextPiece> piecesOf(const TextRun& run);

/// Returns a run on the page: capitals are `height` page units high, the baseline starts at `at`.
[[nodiscard]] TextRun labelRun(const QString& text, double height, const QPointF& at);

} // namespace zu::picture
