#include "shapes/paragraph_parser.h"

#include "records/fonts.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace zu::picture {

namespace {

constexpr std::size_t kDeepestGroup = 64;

/// A number with text after it; `missing` for none or one that is not finite.
double numberOf(QString text, double missing) {
    bool isNumber = false;
    if (text.endsWith(u'x', Qt::CaseInsensitive))
        text.chop(1);
    const double value = text.trimmed().toDouble(&isNumber);
    return isNumber && std::isfinite(value) ? value : missing;
}

double positive(double value, double missing) {
    constexpr double kLargest = 1e6;
    return value > 1.0 / kLargest && value < kLargest ? value : missing;
}

} // namespace

ParagraphParser::ParagraphParser(const QString& text, const TextFormat& initial)
    : text_(text), initialHeight_(initial.height), format_(initial) {}

std::vector<FormattedPiece> ParagraphParser::run() {
    while (at_ < text_.size())
        step();
    flush();
    return std::move(pieces_);
}

void ParagraphParser::flush() {
    if (!letters_.isEmpty())
        pieces_.push_back(
            {FormattedPiece::Kind::letters, resolveCodes(letters_).text, {}, false, format_, paragraph_});
    letters_.clear();
}

void ParagraphParser::add(FormattedPiece::Kind kind) {
    flush();
    pieces_.push_back({kind, {}, {}, false, format_, paragraph_});
}

void ParagraphParser::step() {
    const QChar c = text_[at_++];
    if (c == u'\\' && at_ < text_.size()) {
        readCode(text_[at_++]);
    } else if (c == u'{') {
        flush();
        if (around_.size() < kDeepestGroup)
            around_.push_back(format_);
    } else if (c == u'}') {
        flush();
        if (!around_.empty()) {
            format_ = around_.back();
            around_.pop_back();
        }
    } else if (c == u'\n') {
        add(FormattedPiece::Kind::lineEnd);
    } else if (c == u'\t') {
        add(FormattedPiece::Kind::tab);
    } else if (c != u'\r') {
        letters_ += c;
    }
}

void ParagraphParser::readCode(QChar code) {
    if (code == u'\\' || code == u'{' || code == u'}') {
        letters_ += code;
        return;
    }
    if (code == u'~') {
        letters_ += QChar::Nbsp;
        return;
    }
    flush();
    switch (code.unicode()) {
    case u'P':
    case u'X':
        add(FormattedPiece::Kind::lineEnd);
        break;
    case u'N':
        add(FormattedPiece::Kind::columnEnd);
        break;
    case u'L':
    case u'l':
        format_.underlined = code == u'L';
        break;
    case u'O':
    case u'o':
        format_.overlined = code == u'O';
        break;
    case u'K':
    case u'k':
        format_.struck = code == u'K';
        break;
    case u'H':
        readHeight();
        break;
    case u'W':
        format_.width = positive(numberOf(argument(), format_.width), format_.width);
        break;
    case u'T':
        format_.tracking = positive(numberOf(argument(), format_.tracking), format_.tracking);
        break;
    case u'Q':
        format_.oblique = numberOf(argument(), format_.oblique);
        break;
    case u'A':
        static_cast<void>(argument());
        break;
    case u'C':
        setColour(false);
        break;
    case u'c':
        setColour(true);
        break;
    case u'f':
    case u'F':
        readFont();
        break;
    case u'p':
        readParagraph();
        break;
    case u'S':
        readStack();
        break;
    default:
        (letters_ += u'\\') += code;
    }
}

/// Up to the semicolon that ends it.
QString ParagraphParser::argument() {
    const qsizetype end = text_.indexOf(u';', at_);
    QString found = text_.mid(at_, end < 0 ? -1 : end - at_);
    at_ = end < 0 ? text_.size() : end + 1;
    return found;
}

/// "\H3;" is a height, "\H0.5x;" a factor of the height so far.
void ParagraphParser::readHeight() {
    const QString value = argument();
    const bool isFactor = value.endsWith(u'x', Qt::CaseInsensitive);
    const double number = positive(numberOf(value, 0.0), 0.0);
    if (number > 0.0)
        format_.height = positive(isFactor ? format_.height * number : number, initialHeight_);
}

/// "\fArial|b1|i0|c0|p34;" or the file of a stroke font.
void ParagraphParser::readFont() {
    const QStringList parts = argument().split(u'|');
    format_.family = installedFamily(parts[0]);
    format_.bold = parts.contains(u"b1");
    format_.italic = parts.contains(u"i1");
    format_.onGrid = parts[0].contains(u',');
}

/// "\pi-2,l4,qc;": indents of the first and of the other lines, alignment.
void ParagraphParser::readParagraph() {
    for (const QString& part : argument().split(u',')) {
        const QString item = part.startsWith(u'x') ? part.mid(1) : part;
        const QChar what = item.isEmpty() ? QChar() : item[0];
        const QString value = item.mid(1);
        if (what == u'i')
            paragraph_.firstIndent = numberOf(value, 0.0);
        else if (what == u'l')
            paragraph_.indent = numberOf(value, 0.0);
        else if (what == u'q' && !value.isEmpty())
            paragraph_.align = QStringLiteral("lcr").contains(value[0]) ? value[0].toLatin1() : '\0';
    }
}

/// "\S1/2;" has a line between its parts, "\S1^2;" none; "\S1#2;" is written in a row.
void ParagraphParser::readStack() {
    const QString value = argument();
    qsizetype divider = 0;
    while (divider < value.size() && !QStringLiteral("/^#").contains(value[divider]))
        ++divider;
    if (divider == value.size() || value[divider] == u'#') {
        letters_ += QString(value).replace(u'#', u'/');
        return;
    }
    FormattedPiece stack{FormattedPiece::Kind::stack,
                         value.left(divider),
                         value.mid(divider + 1).trimmed(),
                         value[divider] == u'/',
                         format_,
                         paragraph_};
    pieces_.push_back(std::move(stack));
}

/// "\C1;" is a colour number, "\c255;" a true colour with blue in its highest byte.
void ParagraphParser::setColour(bool isTrueColour) {
    constexpr int kByLayer = 256;
    bool isNumber = false;
    const long value = argument().toLong(&isNumber);
    if (!isNumber || value < 0)
        return;
    if (isTrueColour) {
        const auto bgr = static_cast<std::uint32_t>(value);
        format_.colour =
            Colour{Colour::kForeground, (bgr & 0xFFU) << 16U | (bgr & 0xFF00U) | (bgr >> 16U & 0xFFU)};
    } else if (value > 0 && value < kByLayer) {
        format_.colour = Colour{static_cast<int>(value), std::nullopt};
    } else {
        format_.colour.reset();
    }
}

} // namespace zu::picture
