#pragma once

#include "shapes/paragraph_parser.h"

#include <QLineF>

namespace zu::picture {

/// Columns side by side that a text flows through.
struct TextColumns {
    std::size_t count = 1;       ///< 0 for as many as are needed.
    double distance = 0.0;       ///< From the start of a column to that of the next.
    std::vector<double> heights; ///< 0 for no limit; the last stands for all after it.
    bool isReversed = false;     ///< The first column is on the right.
};

/// A multi-line text to lay out; distances in drawing units.
struct Paragraphs {
    QString text; ///< With format codes.
    TextFormat format;
    double width = 0.0;        ///< Where lines are wrapped; 0 for no wrapping.
    int attachment = 1;        ///< 1 to 9, row by row from top left to bottom right.
    double lineSpacing = 1.0;  ///< A factor.
    bool exactSpacing = false; ///< By the height of the text, not by the highest letters of each line.
    TextColumns columns;       ///< Each as wide as `width`.
};

/// A run of letters in place: the attachment point is the origin, x along the lines, y upwards.
struct PlacedRun {
    TextRun run;
    std::optional<Colour> colour;
};

struct PlacedText {
    std::vector<PlacedRun> runs;
    std::vector<QLineF> lines; ///< Under, over and through letters, and in fractions.
    double width = 0.0;
    double height = 0.0;
};

[[nodiscard]] PlacedText layOut(const Paragraphs& paragraphs);

} // namespace zu::picture
