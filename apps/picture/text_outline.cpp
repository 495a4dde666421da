#include "text_outline.h"

#include "records/fonts.h"
#include "shapes/letters.h"

#include <QCache>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>
#include <limits>
#include <mutex>

namespace zu::picture {

namespace {

constexpr int kPixels = 64;
constexpr double kDescent = 0.35;

QFont measuredFont(const QString& family, bool bold, bool italic, bool onGrid) {
    const QString fallback = fallbackFamily(onGrid);
    QFont font(QStringList{family.isEmpty() ? fallback : family, fallback});
    font.setPixelSize(kPixels);
    font.setBold(bold);
    font.setItalic(italic);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

/// A font in the size in which letters are measured.
struct Face {
    QFont font;
    double capital = 0.0; ///< Pixels.
    double full = 0.0;    ///< Advance of a full-width letter, in capital heights.
};

QString keyOf(const QString& family, bool bold, bool italic, bool onGrid) {
    return family + QChar(u'0' + (bold ? 1 : 0) + (italic ? 2 : 0) + (onGrid ? 4 : 0));
}

const Face& faceOf(const QString& family, bool bold, bool italic, bool onGrid) {
    thread_local QHash<QString, Face> faces;
    const QString key = keyOf(family, bold, italic, onGrid);
    const auto found = faces.constFind(key);
    if (found != faces.constEnd())
        return *found;
    Face face{measuredFont(family, bold, italic, onGrid), 0.0, 0.0};
    const QFontMetricsF metrics(face.font);
    face.capital = metrics.capHeight() > 0.0 ? metrics.capHeight() : kPixels * 0.7;
    face.full = metrics.horizontalAdvance(QChar(0x4E00)) / face.capital;
    if (!(face.full > 0.0))
        face.full = kPixels / face.capital;
    return *faces.insert(key, face);
}

/// Letters of East Asian scripts fill a square.
bool isFullWidth(char32_t c) {
    return (c >= 0x1100 && c <= 0x115F) || (c >= 0x2E80 && c <= 0xA4CF) || (c >= 0xAC00 && c <= 0xD7A3) ||
           (c >= 0xF900 && c <= 0xFAFF) || (c >= 0xFE30 && c <= 0xFE6F) || (c >= 0xFF01 && c <= 0xFF60) ||
           (c >= 0xFFE0 && c <= 0xFFE6) || (c >= 0x2190 && c <= 0x21FF) || (c >= 0x2460 && c <= 0x27BF) ||
           (c >= 0x20000 && c <= 0x3FFFD);
}

QPainterPath naturalLetters(const QString& text, const Face& face) {
    QPainterPath path;
    path.addText(0, 0, face.font, text);
    return QTransform::fromScale(1.0 / face.capital, -1.0 / face.capital).map(path);
}

/// Each letter in the middle of its cell, made narrower where it does not fit.
QPainterPath gridLetters(const QString& text, const Face& face) {
    QPainterPath all;
    double left = 0.0;
    for (const char32_t c : text.toUcs4()) {
        const QString letter = QString::fromUcs4(&c, 1);
        const double cell = isFullWidth(c) ? face.full : face.full / 2.0;
        const double advance = QFontMetricsF(face.font).horizontalAdvance(letter) / face.capital;
        const double squeeze = advance > cell ? cell / advance : 1.0;
        QTransform place = QTransform::fromTranslate(left + (cell - advance * squeeze) / 2.0, 0.0);
        place.scale(squeeze, 1.0);
        all.addPath(place.map(naturalLetters(letter, face)));
        left += cell;
    }
    return all;
}

} // namespace

double advanceOf(const QString& text, const QString& family, bool bold, bool italic, bool onGrid) {
    const Face& face = faceOf(family, bold, italic, onGrid);
    if (onGrid) {
        double advance = 0.0;
        for (const char32_t c : text.toUcs4())
            advance += isFullWidth(c) ? face.full : face.full / 2.0;
        return advance;
    }
    // Shared: a scene is often measured by one thread and painted by another.
    static std::mutex lock;
    static QCache<QString, double> known(20'000);
    const QString key = keyOf(family, bold, italic, false) + text;
    const std::scoped_lock locked(lock);
    if (const double* advance = known.object(key))
        return *advance;
    const double advance = QFontMetricsF(face.font).horizontalAdvance(text) / face.capital;
    known.insert(key, new double(advance));
    return advance;
}

QFont fontOf(const TextRun& run, double capitalHeight) {
    const Face& face = faceOf(run.family, run.bold, run.italic, run.onGrid);
    QFont font = face.font;
    constexpr double kLargest = 10'000.0;
    font.setPixelSize(std::max(
        1, static_cast<int>(std::lround(std::clamp(capitalHeight / face.capital * kPixels, 1.0, kLargest)))));
    return font;
}

namespace {

/// The outline of a run in text space.
QPainterPath lettersOf(const TextRun& run) {
    thread_local QCache<QString, QPainterPath> known(400'000);
    const QString key = keyOf(run.family, run.bold, run.italic, run.onGrid) + run.text;
    if (const QPainterPath* path = known.object(key))
        return *path;
    const Face& face = faceOf(run.family, run.bold, run.italic, run.onGrid);
    QPainterPath path = run.onGrid ? gridLetters(run.text, face) : naturalLetters(run.text, face);
    path.setFillRule(Qt::WindingFill);
    known.insert(key, new QPainterPath(path), std::max(1, path.elementCount()));
    return path;
}

/// The part of a path from the start of a line on; `at` becomes the start of the next one.
QPainterPath nextLine(const QPainterPath& path, int& at) {
    QPainterPath line(path.elementAt(at++));
    while (at < path.elementCount() && !path.elementAt(at).isMoveTo()) {
        if (path.elementAt(at).isCurveTo()) {
            line.cubicTo(path.elementAt(at), path.elementAt(at + 1), path.elementAt(at + 2));
            at += 3;
        } else {
            line.lineTo(path.elementAt(at++));
        }
    }
    return line;
}

} // namespace

QPainterPath outlineOf(const TextRun& run) {
    return run.place.map(lettersOf(run));
}

std::vector<QPainterPath> outlinesOf(const TextRun& run) {
    constexpr int kMost = 2000; // A painter's time grows with the square of the corners of a path.
    const QPainterPath letters = lettersOf(run);
    if (letters.elementCount() <= kMost)
        return {run.place.map(letters)};
    std::vector<QPainterPath> groups;
    QPainterPath group;
    double right = -std::numeric_limits<double>::infinity();
    for (int at = 0; at < letters.elementCount();) {
        const QPainterPath line = nextLine(letters, at);
        const QRectF box = line.controlPointRect();
        if (group.elementCount() > kMost / 4 && box.left() > right) {
            groups.push_back(run.place.map(group));
            group.clear();
        }
        group.setFillRule(Qt::WindingFill);
        group.addPath(line);
        right = std::max(right, box.right());
    }
    groups.push_back(run.place.map(group));
    return groups;
}

QPolygonF cornersOf(const TextRun& run) {
    const QPolygonF corners{{0.0, 0.0}, {run.width, 0.0}, {run.width, 1.0}, {0.0, 1.0}, {0.0, -kDescent}};
    return run.place.map(corners);
}

} // namespace zu::picture
