#include "shapes/builders.h"
#include "shapes/letters.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string_view>

namespace zu::picture {

namespace {

constexpr qsizetype kLongestText = 4000;
constexpr double kSteepest = 85.0;

enum Horizontal { left, centre, right, aligned, middle, fit };

/// How far above the baseline the alignment point lies, in capital heights.
double lift(int horizontal, int vertical) {
    constexpr double kDescender = -0.25;
    if (horizontal == Horizontal::middle)
        return 0.5;
    switch (vertical) {
    case 1:
        return kDescender;
    case 2:
        return 0.5;
    case 3:
        return 1.0;
    default:
        return 0.0;
    }
}

double startShift(int horizontal, double width) {
    if (horizontal == Horizontal::centre || horizontal == Horizontal::middle)
        return -width / 2.0;
    return horizontal == Horizontal::right ? -width : 0.0;
}

QTransform slant(double degrees) {
    QTransform shear;
    shear.shear(
        std::tan(std::clamp(std::fmod(degrees, 360.0), -kSteepest, kSteepest) * std::numbers::pi / 180.0),
        0.0);
    return shear;
}

/// From text space to the plane of the entity.
QTransform placeOf(const Records& records, double width, int vertical) {
    constexpr int kBackward = 2;
    constexpr int kUpsideDown = 4;
    const AcGePoint3d first = records.point(10);
    const AcGePoint3d second = records.point(11, first);
    const int horizontal = records.integer(72);
    const double height = records.real(40);
    const double factor = records.real(41, 1.0);
    const int generation = records.integer(71);
    const QTransform letters = slant(records.real(51));
    const QPointF span(second.x - first.x, second.y - first.y);
    const double length = std::hypot(span.x(), span.y());
    const bool fits = horizontal == Horizontal::aligned || horizontal == Horizontal::fit;
    if (fits && length > 0.0 && width > 0.0) {
        QTransform place = QTransform::fromTranslate(first.x, first.y);
        place.rotateRadians(std::atan2(span.y(), span.x()));
        const double scale = length / width;
        place.scale(scale, horizontal == Horizontal::aligned ? scale : height);
        return letters * place;
    }
    const bool usesSecond = records.has(11) && !fits && (horizontal != 0 || vertical != 0);
    const AcGePoint3d& at = usesSecond ? second : first;
    QTransform place = QTransform::fromTranslate(at.x, at.y);
    place.rotate(std::fmod(records.real(50), 360.0));
    place.scale((generation & kBackward) != 0 ? -height : height,
                (generation & kUpsideDown) != 0 ? -height : height);
    place.translate(startShift(horizontal, width * factor), -lift(horizontal, vertical));
    place.scale(factor, 1.0);
    return letters * place;
}

void drawMarks(Canvas& canvas, const Entity& entity, const TextRun& run, const std::vector<qsizetype>& marks,
               double y, const QTransform& toWorld) {
    QPainterPath path;
    const auto advance = [&](qsizetype count) {
        return advanceOf(run.text.left(count), run.family, run.bold, run.italic, run.onGrid);
    };
    for (std::size_t i = 0; i + 1 < marks.size(); i += 2) {
        path.moveTo(advance(marks[i]), y);
        path.lineTo(advance(marks[i + 1]), y);
    }
    canvas.stroke(entity, path, run.place * toWorld);
}

/// Letters that lie on their side in vertical lines: long vowels, brackets, dashes.
bool isTurnedInColumns(char32_t letter) {
    constexpr std::u32string_view kTurned = U"ー－～〜…‥—―-()[]{}<>（）［］｛｝＜＞「」『』【】〔〕〈〉《》";
    return kTurned.find(letter) != std::u32string_view::npos;
}

/// The letters below each other, each in the middle of a square cell; the text's place is the top of the
/// first, its middle or the bottom of the last.
void drawColumn(Canvas& canvas, const Entity& entity, const QString& text, const TextStyle& style,
                const QTransform& toWorld) {
    const Records& records = entity.records;
    const std::u32string letters = text.toStdU32String();
    const double cell = advanceOf(QChar(0x4E00), style.family, style.bold, style.italic, style.onGrid);
    const int horizontal = records.integer(72);
    const AcGePoint3d first = records.point(10);
    const AcGePoint3d at = horizontal != Horizontal::left ? records.point(11, first) : first;
    QTransform column = QTransform::fromTranslate(at.x, at.y);
    column.rotate(std::fmod(records.real(50), 360.0));
    column.scale(records.real(40), records.real(40));
    column.translate(0.0, -startShift(horizontal, cell * static_cast<double>(letters.size())));
    for (std::size_t i = 0; i < letters.size(); ++i) {
        TextRun run = runOf(QString::fromUcs4(&letters[i], 1), style);
        QTransform place = QTransform::fromTranslate(0.0, -cell * (static_cast<double>(i) + 0.5)) * column;
        if (isTurnedInColumns(letters[i]))
            place.rotate(-90.0);
        place.scale(records.real(41, 1.0), 1.0);
        place.translate(-run.width / 2.0, -0.5);
        run.place = slant(records.real(51)) * place;
        canvas.text(entity, std::move(run), toWorld);
    }
}

/// Full-width letters lie on their left side.
void drawTurned(Canvas& canvas, const Entity& entity, const TextRun& whole, const TextStyle& style,
                const QTransform& toWorld) {
    const double cell = advanceOf(QChar(0x4E00), style.family, style.bold, style.italic, style.onGrid);
    double left = 0.0;
    for (const char32_t letter : whole.text.toStdU32String()) {
        TextRun run = runOf(QString::fromUcs4(&letter, 1), style);
        QTransform place = QTransform::fromTranslate(left + run.width / 2.0, 0.5);
        if (run.width > 0.9 * cell)
            place.rotate(90.0);
        place.translate(-run.width / 2.0, -0.5);
        left += run.width;
        run.place = place * whole.place;
        canvas.text(entity, std::move(run), toWorld);
    }
}

Outcome drawText(Canvas& canvas, const Entity& entity, const QString& contents, int vertical) {
    const Records& records = entity.records;
    const CodedText coded = resolveCodes(contents.left(kLongestText));
    if (coded.text.trimmed().isEmpty())
        return "it has no text";
    if (!(records.real(40) > 0.0))
        return "its height is not positive";
    const TextStyle& style = canvas.styles().textStyle(records.text(7));
    const QTransform toWorld = canvas.planeOf(entity, records.point(10).z);
    Entity plain = entity;
    plain.look.linetype = nullptr;
    if (style.isVertical) {
        drawColumn(canvas, plain, coded.text, style, toWorld);
        return kDrawn;
    }
    TextRun run = runOf(coded.text, style);
    run.place = placeOf(records, run.width, vertical);
    drawMarks(canvas, plain, run, coded.underlined, -0.25, toWorld);
    drawMarks(canvas, plain, run, coded.overlined, 1.25, toWorld);
    if (style.turnsLetters)
        drawTurned(canvas, plain, run, style, toWorld);
    else
        canvas.text(plain, std::move(run), toWorld);
    return kDrawn;
}

constexpr int kInvisible = 1;
constexpr int kConstant = 2;

} // namespace

Outcome buildText(Canvas& canvas, const Entity& entity) {
    return drawText(canvas, entity, entity.records.text(1), entity.records.integer(73));
}

Outcome buildAttribute(Canvas& canvas, const Entity& entity) {
    if ((entity.records.integer(70) & kInvisible) != 0)
        return "it is an invisible attribute";
    return drawText(canvas, entity, entity.records.text(1), entity.records.integer(74));
}

/// ATTDEF: a constant one shows its text in every reference, others show their tag where they are defined.
Outcome buildDefinition(Canvas& canvas, const Entity& entity) {
    const int flags = entity.records.integer(70);
    const bool isConstant = (flags & kConstant) != 0;
    if ((flags & kInvisible) != 0)
        return "it is an invisible attribute";
    if (canvas.isInBlock() && !isConstant)
        return kNoGraphics;
    return drawText(canvas, entity, entity.records.text(isConstant ? 1 : 2), entity.records.integer(74));
}

Outcome drawValue(Canvas& canvas, const Entity& definition, const QString& value) {
    if ((definition.records.integer(70) & kInvisible) != 0)
        return "it is an invisible attribute";
    return drawText(canvas, definition, value, definition.records.integer(74));
}

Outcome buildShapeFile(Canvas& /*canvas*/, const Entity& /*entity*/) {
    return "its shape font is not available";
}

} // namespace zu::picture
