#include "painters/text_pieces.h"

#include "text_outline.h"

#include <QFontMetricsF>

namespace zu::picture {

namespace {

/// Height of capitals at which widths are measured.
constexpr double kMeasured = 100.0;

/// Letters that take two columns: those of East Asian scripts and their full-width forms.
bool isFullWidth(char32_t letter) {
    return (letter >= 0x1100 && letter < 0x1160) || (letter >= 0x2E80 && letter < 0xA4D0) ||
           (letter >= 0xAC00 && letter < 0xD7A4) || (letter >= 0xF900 && letter < 0xFB00) ||
           (letter >= 0xFE30 && letter < 0xFE70) || (letter >= 0xFF00 && letter < 0xFF61) ||
           (letter >= 0xFFE0 && letter < 0xFFE7) || (letter >= 0x20000 && letter < 0x40000);
}

} // namespace

std::vector<TextPiece> piecesOf(const TextRun& run) {
    if (!run.onGrid)
        return {{run.text, 0.0, run.width}};
    std::vector<TextPiece> pieces;
    int columns = 0;
    for (const char32_t letter : run.text.toStdU32String()) {
        const int width = isFullWidth(letter) ? 2 : 1;
        pieces.push_back(
            {QString::fromUcs4(&letter, 1), static_cast<double>(columns), static_cast<double>(width)});
        columns += width;
    }
    for (TextPiece& piece : pieces) {
        piece.start *= run.width / columns;
        piece.width *= run.width / columns;
    }
    return pieces;
}

TextRun labelRun(const QString& text, double height, const QPointF& at) {
    TextRun run;
    run.text = text;
    run.width = QFontMetricsF(fontOf(run, kMeasured)).horizontalAdvance(text) / kMeasured;
    run.place = QTransform(height, 0.0, 0.0, -height, at.x(), at.y());
    return run;
}

} // namespace zu::picture
