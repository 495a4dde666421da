#pragma once

#include "shapes/paragraph_parser.h"

#include <QLineF>

namespace zu::picture {

/// A multi-line text to lay out; distances in drawing units.
struct Paragraphs {
    QString text; ///< With format codes.
    TextFormat format;
    double width = 0.0;        ///< Where lines are wrapped; 0 for no wrapping.
    int attachment = 1;        ///< 1 to 9, row by row from top left to bottom right.
    double lineSpacing = 1.0;  ///< A factor.
    bool exactSpacing = false; ///< By the height of the text, not by the highest letters of each line.
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
