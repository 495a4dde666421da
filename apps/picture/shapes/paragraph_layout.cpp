#include "shapes/paragraph_layout.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zu::picture {

namespace {

constexpr double kLineDistance = 5.0 / 3.0;
constexpr double kStackHeight = 0.7;
constexpr double kTabHeights = 4.0;
constexpr double kSteepest = 85.0;

/// What is never broken between lines: a word, an ideograph, a fraction.
struct Atom {
    FormattedPiece piece;
    double width = 0.0;
    bool isBlank = false;
};

struct Line {
    std::vector<Atom> atoms;
    double width = 0.0; ///< Without blanks at the end.
    double indent = 0.0;
    char align = '\0';
    bool endsColumn = false;
};

double widthOf(const QString& text, const TextFormat& format) {
    const double tracking = (format.tracking - 1.0) * 0.5 * static_cast<double>(text.size());
    return (advanceOf(text, format.family, format.bold, format.italic, format.onGrid) + tracking) *
           format.width * format.height;
}

double widthOf(const FormattedPiece& piece) {
    switch (piece.kind) {
    case FormattedPiece::Kind::tab:
        return kTabHeights * piece.format.height;
    case FormattedPiece::Kind::stack:
        return std::max(widthOf(piece.text, piece.format), widthOf(piece.below, piece.format)) * kStackHeight;
    default:
        return widthOf(piece.text, piece.format);
    }
}

bool isIdeograph(QChar c) {
    constexpr char16_t kFirst = 0x2E80;
    return c.unicode() >= kFirst && !c.isSurrogate();
}

/// The end of the atom that begins at `at`.
qsizetype atomEnd(const QString& text, qsizetype at) {
    const bool isBlank = text[at] == u' ';
    if (isIdeograph(text[at]))
        return at + 1;
    qsizetype end = at + 1;
    while (end < text.size() && (text[end] == u' ') == isBlank && !isIdeograph(text[end]))
        ++end;
    return end;
}

/// Breaks pieces into lines, each as wide as it may be.
class LineBreaker {
public:
    LineBreaker(double width) : most_(width > 0.0 ? width * (1.0 + 1e-6) : INFINITY) {}

    std::vector<Line> run(const std::vector<FormattedPiece>& pieces) {
        if (!pieces.empty())
            startLine(pieces.front().paragraph, true);
        for (const FormattedPiece& piece : pieces) {
            if (lines_.back().atoms.empty())
                lines_.back().align = piece.paragraph.align;
            const bool endsColumn = piece.kind == FormattedPiece::Kind::columnEnd;
            if (endsColumn || piece.kind == FormattedPiece::Kind::lineEnd) {
                lines_.back().endsColumn = endsColumn;
                lines_.back().atoms.push_back({piece, 0.0, true}); // an empty line is as high as its format
                startLine(piece.paragraph, true);
            } else if (piece.kind == FormattedPiece::Kind::letters) {
                addLetters(piece);
            } else {
                add({piece, widthOf(piece), false});
            }
        }
        return std::move(lines_);
    }

private:
    void startLine(const ParagraphFormat& format, bool isFirst) {
        Line line;
        line.indent = std::max(0.0, format.indent + (isFirst ? format.firstIndent : 0.0));
        line.align = format.align;
        lines_.push_back(std::move(line));
        used_ = lines_.back().indent;
    }

    void addLetters(const FormattedPiece& piece) {
        for (qsizetype at = 0; at < piece.text.size();) {
            const qsizetype end = atomEnd(piece.text, at);
            Atom atom{piece, 0.0, piece.text[at] == u' '};
            atom.piece.text = piece.text.mid(at, end - at);
            atom.width = widthOf(atom.piece);
            add(std::move(atom));
            at = end;
        }
    }

    void add(Atom atom) {
        const bool hasWord = lines_.back().width > 0.0;
        if (!atom.isBlank && hasWord && used_ + atom.width > most_)
            startLine(atom.piece.paragraph, false);
        if (atom.isBlank && lines_.back().atoms.empty() && lines_.size() > 1 && used_ > 0.0 && !hasWord)
            atom.width = std::max(0.0, atom.width);
        used_ += atom.width;
        if (!atom.isBlank)
            lines_.back().width = used_ - lines_.back().indent;
        lines_.back().atoms.push_back(std::move(atom));
    }

    double most_;
    double used_ = 0.0;
    std::vector<Line> lines_;
};

double heightOf(const Line& line, double missing) {
    double height = 0.0;
    for (const Atom& atom : line.atoms)
        height = std::max(height, atom.piece.format.height);
    return height > 0.0 ? height : missing;
}

QTransform placeAt(double x, double y, const TextFormat& format, double size) {
    QTransform place = QTransform::fromTranslate(x, y);
    place.scale(size * format.width, size);
    place.shear(std::tan(std::clamp(std::fmod(format.oblique, 360.0), -kSteepest, kSteepest) *
                         std::numbers::pi / 180.0),
                0.0);
    return place;
}

/// Puts the atoms of lines at their places.
class Placer {
public:
    explicit Placer(PlacedText& result) : result_(result) {}

    void placeLine(const Line& line, double left, double baseline) {
        double x = left + line.indent;
        for (std::size_t i = 0; i < line.atoms.size();) {
            // Neighbours of one format form one run, so that letters keep their distances.
            Atom joined = line.atoms[i++];
            const bool isText = joined.piece.kind == FormattedPiece::Kind::letters;
            while (isText && i < line.atoms.size() && isSameRun(joined, line.atoms[i])) {
                joined.piece.text += line.atoms[i].piece.text;
                joined.width += line.atoms[i++].width;
            }
            place(joined, x, baseline);
            x += joined.width;
        }
    }

private:
    static bool isSameRun(const Atom& a, const Atom& b) {
        const TextFormat& f = a.piece.format;
        const TextFormat& g = b.piece.format;
        return b.piece.kind == FormattedPiece::Kind::letters && f.height == g.height && f.width == g.width &&
               f.oblique == g.oblique && f.tracking == g.tracking && f.colour == g.colour &&
               f.family == g.family && f.bold == g.bold && f.italic == g.italic && f.onGrid == g.onGrid &&
               f.underlined == g.underlined && f.overlined == g.overlined && f.struck == g.struck;
    }

    void place(const Atom& atom, double x, double y) {
        const TextFormat& format = atom.piece.format;
        if (atom.piece.kind == FormattedPiece::Kind::stack) {
            const double size = format.height * kStackHeight;
            addRun(atom.piece.text, format, x, y + format.height * 0.55, size);
            addRun(atom.piece.below, format, x, y - format.height * 0.35, size);
            if (atom.piece.hasLine)
                result_.lines.emplace_back(x, y + format.height * 0.45, x + atom.width,
                                           y + format.height * 0.45);
            return;
        }
        if (atom.piece.kind != FormattedPiece::Kind::letters)
            return;
        addLetters(atom, x, y);
        const auto addLine = [&](bool isWanted, double height) {
            if (isWanted)
                result_.lines.emplace_back(x, y + height * format.height, x + atom.width,
                                           y + height * format.height);
        };
        addLine(format.underlined, -0.25);
        addLine(format.overlined, 1.25);
        addLine(format.struck, 0.45);
    }

    /// Letters with a tracking of their own are placed one by one.
    void addLetters(const Atom& atom, double x, double y) {
        const TextFormat& format = atom.piece.format;
        if (format.tracking == 1.0) {
            addRun(atom.piece.text, format, x, y, format.height);
            return;
        }
        for (const QChar c : atom.piece.text) {
            addRun(QString(c), format, x, y, format.height);
            x += widthOf(QString(c), format);
        }
    }

    void addRun(const QString& text, const TextFormat& format, double x, double y, double size) {
        if (text.trimmed().isEmpty())
            return;
        PlacedRun placed;
        placed.run.text = text;
        placed.run.family = format.family;
        placed.run.bold = format.bold;
        placed.run.italic = format.italic;
        placed.run.onGrid = format.onGrid;
        placed.run.width = advanceOf(text, format.family, format.bold, format.italic, format.onGrid);
        placed.run.place = placeAt(x, y, format, size);
        placed.colour = format.colour;
        result_.runs.push_back(std::move(placed));
    }

    PlacedText& result_;
};

/// Where a line lies: its column, and its baseline below the top of that.
struct Slot {
    std::size_t column = 0;
    double down = 0.0;
};

/// Fills the columns one after the other. A line ends up in the last one, however long that becomes.
class ColumnFiller {
public:
    explicit ColumnFiller(const Paragraphs& paragraphs) : paragraphs_(paragraphs) {}

    Slot add(const Line& line) {
        const double usual = paragraphs_.format.height;
        const double height = heightOf(line, usual);
        const double step =
            (paragraphs_.exactSpacing ? usual : height) * kLineDistance * paragraphs_.lineSpacing;
        const bool isFull = !isEmpty_ && limit() > 0.0 && last_.down + step > limit() * (1.0 + 1e-6);
        if ((isFull || isEnded_) && hasNext())
            last_ = {last_.column + 1, height};
        else
            last_.down += isEmpty_ ? height : step;
        isEmpty_ = false;
        isEnded_ = line.endsColumn;
        lowest_ = std::max(lowest_, last_.down);
        return last_;
    }

    [[nodiscard]] std::size_t count() const { return std::max(last_.column + 1, paragraphs_.columns.count); }
    [[nodiscard]] double height() const { return lowest_; }

private:
    [[nodiscard]] bool hasNext() const {
        const std::size_t count = paragraphs_.columns.count;
        return count == 0 || last_.column + 1 < count;
    }
    [[nodiscard]] double limit() const {
        const std::vector<double>& heights = paragraphs_.columns.heights;
        return heights.empty() ? 0.0 : heights[std::min(last_.column, heights.size() - 1)];
    }

    const Paragraphs& paragraphs_;
    Slot last_;
    bool isEmpty_ = true;
    bool isEnded_ = false;
    double lowest_ = 0.0;
};

/// Where a line begins, from the left side of its column.
double leftOf(const Line& line, int column, double box) {
    const int align = line.align == 'l' ? 0 : line.align == 'c' ? 1 : line.align == 'r' ? 2 : column;
    return (box - line.width - line.indent) * align / 2.0;
}

} // namespace

PlacedText layOut(const Paragraphs& paragraphs) {
    PlacedText result;
    const std::vector<FormattedPiece> pieces = ParagraphParser(paragraphs.text, paragraphs.format).run();
    const std::vector<Line> lines = LineBreaker(paragraphs.width).run(pieces);
    ColumnFiller filler(paragraphs);
    std::vector<Slot> places;
    for (const Line& line : lines) {
        places.push_back(filler.add(line));
        result.width = std::max(result.width, line.width + line.indent);
    }
    result.height = filler.height();
    const int place = std::clamp(paragraphs.attachment, 1, 9) - 1;
    const int row = place / 3;
    const double lift = result.height * row / 2.0;
    // Lines align within the width, when there is one; it lies at the attachment point as the text does.
    const double box = paragraphs.width > 0.0 ? paragraphs.width : result.width;
    const double distance = paragraphs.columns.distance;
    const double all = distance * static_cast<double>(filler.count() - 1) + box;
    Placer placer(result);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::size_t column =
            paragraphs.columns.isReversed ? filler.count() - 1 - places[i].column : places[i].column;
        const double left = distance * static_cast<double>(column) - all * (place % 3) / 2.0;
        placer.placeLine(lines[i], left + leftOf(lines[i], place % 3, box), lift - places[i].down);
    }
    return result;
}

} // namespace zu::picture
