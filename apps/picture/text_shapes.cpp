#include "text_shapes.h"

#include "plain_text.h"

#include <QFont>
#include <QFontMetricsF>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zu::preview {

namespace {

constexpr int kPixels = 64;
constexpr double kLineDistance = 5.0 / 3;
constexpr qsizetype kLongestText = 4000;
constexpr double kSteepest = 85;

const QFont& font() {
    static const QFont made = [] {
        QFont font(QStringList{"IPAPGothic", "Noto Sans CJK JP", "MS PGothic", "sans-serif"});
        font.setPixelSize(kPixels);
        font.setHintingPreference(QFont::PreferNoHinting);
        return font;
    }();
    return made;
}

/// A line of letters from (0, 0) to the right, capitals 1 high, y upwards.
struct Letters {
    QPainterPath path;
    double width = 0;
};

double capitalHeight() {
    static const double height = QFontMetricsF(font()).capHeight();
    return height > 0 ? height : kPixels * 0.7;
}

double widthOf(const QString& text) {
    return QFontMetricsF(font()).horizontalAdvance(text) / capitalHeight();
}

Letters lettersOf(const QString& text) {
    Letters letters;
    letters.path.addText(0, 0, font(), text);
    letters.path = QTransform::fromScale(1 / capitalHeight(), -1 / capitalHeight()).map(letters.path);
    letters.width = widthOf(text);
    return letters;
}

/// How far down the alignment point lies from the baseline, in heights.
double baselineShift(const CText& text) {
    if (text.m_halign == 4)
        return -0.5;
    switch (text.m_valign) {
    case 1:
        return 0.2;
    case 2:
        return -0.5;
    case 3:
        return -1;
    default:
        return 0;
    }
}

double startShift(int halign, double width) {
    switch (halign) {
    case 1:
    case 4:
        return -width / 2;
    case 2:
        return -width;
    default:
        return 0;
    }
}

QTransform oblique(double degrees) {
    const double angle = std::clamp(degrees, -kSteepest, kSteepest) * std::numbers::pi / 180;
    QTransform shear;
    shear.shear(std::tan(angle), 0);
    return shear;
}

/// Between two points: as wide as their distance, and for an aligned text as high as that makes it.
QPainterPath fitted(const CText& text, const Letters& letters) {
    const QPointF span(text.m_x2 - text.m_x, text.m_y2 - text.m_y);
    const double length = std::hypot(span.x(), span.y());
    if (letters.width <= 0 || length <= 0)
        return {};
    const double xScale = length / letters.width;
    QTransform place = QTransform::fromTranslate(text.m_x, text.m_y);
    place.rotate(std::atan2(span.y(), span.x()) * 180 / std::numbers::pi);
    place.scale(xScale, text.m_halign == 3 ? xScale : text.m_height);
    return (oblique(text.m_oblique) * place).map(letters.path);
}

bool breaksAfter(QChar c) {
    constexpr char16_t kFirstIdeographic = 0x2E80;
    return c == u' ' || (c.unicode() >= kFirstIdeographic && !c.isHighSurrogate());
}

/// Parts a line where it gets too wide, after blanks and ideographs. A blank may stand beyond the width.
QStringList wrapped(const QString& line, double width) {
    if (width <= 0 || widthOf(line) <= width)
        return {line};
    QStringList lines;
    qsizetype start = 0;
    qsizetype fits = 0;   // Where the line may end,
    double used = 0;      // how wide what stands in it is,
    double afterFits = 0; // and how much of that would come into the next.
    for (qsizetype i = 0; i < line.size(); ++i) {
        const double letter = widthOf(QString(line[i]));
        used += letter;
        afterFits += letter;
        if (used > width && line[i] != u' ' && fits > start) {
            lines += line.mid(start, fits - start).trimmed();
            start = fits;
            used = afterFits;
        }
        if (breaksAfter(line[i])) {
            fits = i + 1;
            afterFits = 0;
        }
    }
    lines += line.mid(start);
    return lines;
}

double rotationOf(const CMtext& text) {
    if (!text.Has(50) && text.Has(11))
        return std::atan2(text.m_y2, text.m_x2) * 180 / std::numbers::pi;
    return text.m_rotation;
}

} // namespace

QPainterPath textShape(const CText& text) {
    const QString plain = plainText(text.GetText().view()).left(kLongestText);
    if (plain.trimmed().isEmpty() || text.m_height <= 0)
        return {};
    const Letters letters = lettersOf(plain);
    const bool aligned = text.Has(11) && (text.m_halign != 0 || text.m_valign != 0);
    if (aligned && (text.m_halign == 3 || text.m_halign == 5))
        return fitted(text, letters);
    QTransform place =
        QTransform::fromTranslate(aligned ? text.m_x2 : text.m_x, aligned ? text.m_y2 : text.m_y);
    place.rotate(text.m_rotation);
    constexpr int kBackward = 2;
    constexpr int kUpsideDown = 4;
    place.scale((text.m_generation & kBackward) != 0 ? -text.m_height : text.m_height,
                (text.m_generation & kUpsideDown) != 0 ? -text.m_height : text.m_height);
    place.translate(startShift(text.m_halign, letters.width * text.m_width), baselineShift(text));
    place.scale(text.m_width, 1);
    return (oblique(text.m_oblique) * place).map(letters.path);
}

QPainterPath textShape(const CMtext& text) {
    if (text.m_height <= 0)
        return {};
    QStringList lines;
    for (const QString& line : plainLines(text.GetFullText().view().substr(0, kLongestText)))
        lines += wrapped(line, text.m_width / text.m_height);

    const int place = std::clamp(text.m_attach, 1, 9) - 1;
    const double height = 1 + static_cast<double>(lines.size() - 1) * kLineDistance;
    const double top = place / 3 == 0 ? 0 : (place / 3 == 1 ? height / 2 : height);
    QPainterPath all;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const Letters letters = lettersOf(lines[i]);
        const double left = -letters.width * (place % 3) / 2;
        all.addPath(letters.path.translated(left, top - 1 - static_cast<double>(i) * kLineDistance));
    }
    QTransform toPlace = QTransform::fromTranslate(text.m_x, text.m_y);
    toPlace.rotate(rotationOf(text));
    toPlace.scale(text.m_height, text.m_height);
    return toPlace.map(all);
}

} // namespace zu::preview
