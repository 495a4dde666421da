#include "painters/text_pieces.h"

#include "shapes/letters.h"

namespace zu::picture {

std::vector<TextPiece> piecesOf(const TextRun& run) {
    if (!run.onGrid)
        return {{run.text, 0.0, run.width}};
    std::vector<TextPiece> pieces;
    double start = 0.0;
    for (const char32_t letter : run.text.toUcs4()) {
        const QString text = QString::fromUcs4(&letter, 1);
        const double width = advanceOf(text, run.family, run.bold, run.italic, true);
        pieces.push_back({text, start, width});
        start += width;
    }
    return pieces;
}

TextRun labelRun(const QString& text, double height, const QPointF& at) {
    TextRun run;
    run.text = text;
    run.width = advanceOf(text, run.family, run.bold, run.italic, run.onGrid);
    run.place = QTransform(height, 0.0, 0.0, -height, at.x(), at.y());
    return run;
}

} // namespace zu::picture
