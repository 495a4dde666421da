#pragma once

#include "shapes/letters.h"

#include <optional>
#include <vector>

namespace zu::picture {

/// How a stretch of a multi-line text is formatted.
struct TextFormat {
    double height = 1.0;
    double width = 1.0;
    double oblique = 0.0; ///< Degrees.
    double tracking = 1.0;
    std::optional<Colour> colour; ///< None for that of the entity.
    bool isByBlock = false;
    QString family;
    bool bold = false;
    bool italic = false;
    bool onGrid = false;
    bool underlined = false;
    bool overlined = false;
    bool struck = false;
};

/// How a paragraph is laid out; distances in drawing units.
struct ParagraphFormat {
    double firstIndent = 0.0;
    double indent = 0.0;
    char align = '\0'; ///< 'l', 'c', 'r'; 0 by the attachment of the text.
};

struct FormattedPiece {
    enum class Kind { letters, tab, lineEnd, columnEnd, stack };

    Kind kind = Kind::letters;
    QString text;
    QString below;        ///< Of a stack; `text` is above.
    bool hasLine = false; ///< Between the parts of a stack.
    TextFormat format;
    ParagraphFormat paragraph; ///< Of the paragraph that the piece is in.
};

/// Parses the format codes of a multi-line text.
class ParagraphParser {
public:
    /// Knows the installed families of fonts by their names.
    ParagraphParser(const QString& text, const TextFormat& initial);

    [[nodiscard]] std::vector<FormattedPiece> run();

private:
    void step();
    void readCode(QChar code);
    void readHeight();
    void readFont();
    void readParagraph();
    void readStack();
    void setColour(bool isTrueColour);
    void flush();
    void add(FormattedPiece::Kind kind);
    [[nodiscard]] QString argument();

    const QString& text_;
    qsizetype at_ = 0;
    double initialHeight_;
    TextFormat format_;
    ParagraphFormat paragraph_;
    std::vector<TextFormat> around_;
    QString letters_;
    std::vector<FormattedPiece> pieces_;
};

} // namespace zu::picture
