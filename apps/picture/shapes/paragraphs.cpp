#include "shapes/paragraphs.h"

#include "shapes/builders.h"

#include <cmath>
#include <numbers>
#include <string>

namespace zu::picture {

namespace {

constexpr qsizetype kLongestText = 20'000;
constexpr double kDegree = std::numbers::pi / 180.0;

/// The direction of the text: the later one of an angle and a vector.
AcGeVector3d directionOf(const Records& records, const AcGeVector3d& normal) {
    const std::size_t vector = records.position(11);
    const std::size_t angle = records.position(50);
    if (vector < records.size() && (angle == records.size() || angle < vector))
        return records.pointAt(vector).asVector();
    const double turn = std::fmod(records.real(50), 360.0) * kDegree;
    return AcGeMatrix3d::planeToWorld(normal) * AcGeVector3d(std::cos(turn), std::sin(turn), 0.0);
}

/// The columns of a text by its embedded object; those of older drawings are texts of their own.
void readColumns(const Records& embedded, Paragraphs& paragraphs) {
    constexpr int kDynamic = 2;
    constexpr int kMost = 1000;
    const int type = embedded.integer(71);
    const double width = embedded.real(44);
    if (type == 0 || !(width > 0.0))
        return;
    const bool isAutomatic = type == kDynamic && embedded.integer(73) != 0;
    TextColumns& columns = paragraphs.columns;
    paragraphs.width = width;
    columns.count = isAutomatic ? 0U : static_cast<std::size_t>(std::clamp(embedded.integer(72), 0, kMost));
    columns.distance = width + embedded.real(45);
    columns.isReversed = embedded.integer(74) != 0;
    columns.heights = embedded.reals(46);
    if (isAutomatic || columns.heights.empty())
        columns.heights = {embedded.real(41)};
}

/// The texts of vertical lines are drawn in horizontal ones.
Outcome outcomeOf(const Records& records, const TextStyle& style) {
    constexpr int kDownwards = 3;
    constexpr int kByStyle = 5;
    const int flow = records.integer(72, 1);
    if (flow == kDownwards || (flow == kByStyle && style.isVertical))
        return "its vertical lines are drawn horizontally";
    return style.turnsLetters ? "the letters of its @ font are drawn upright" : kDrawn;
}

} // namespace

TextFormat formatOf(const TextStyle& style, double height) {
    TextFormat format;
    format.height = height;
    format.width = style.width > 0.0 ? style.width : 1.0;
    format.oblique = style.oblique;
    format.family = style.family;
    format.bold = style.bold;
    format.italic = style.italic;
    format.onGrid = style.onGrid;
    return format;
}

void drawPlaced(Canvas& canvas, const Entity& entity, const PlacedText& text, const QTransform& toPlane,
                const QTransform& toWorld) {
    Entity plain = entity;
    plain.look.linetype = nullptr;
    for (const PlacedRun& placed : text.runs) {
        TextRun run = placed.run;
        run.place = run.place * toPlane;
        canvas.text(plain, std::move(run), toWorld, placed.colour.value_or(entity.look.colour));
    }
    QPainterPath lines;
    for (const QLineF& line : text.lines) {
        lines.moveTo(line.p1());
        lines.lineTo(line.p2());
    }
    canvas.stroke(plain, lines, toPlane * toWorld);
}

QString joinedText(const Canvas& canvas, const Records& records, int partCode, int lastCode) {
    std::string bytes;
    for (const Tag& tag : records.tags())
        if (tag.code == partCode)
            bytes += tag.value();
    return canvas.drawing().decode(bytes += records.raw(lastCode)).left(kLongestText);
}

/// MTEXT.
Outcome buildParagraph(Canvas& canvas, const Entity& entity) {
    const Records own = entity.records.subclass("AcDbMText");
    const Records& records = own.size() > 0 ? own : entity.records;
    const TextStyle& style = canvas.styles().textStyle(records.text(7));
    const Outcome outcome = outcomeOf(records, style);
    Paragraphs paragraphs;
    paragraphs.text = joinedText(canvas, records, 3, 1);
    const double height = records.real(40, style.height);
    if (paragraphs.text.trimmed().isEmpty())
        return "it has no text";
    if (!(height > 0.0))
        return "its height is not positive";
    if (!canvas.take(static_cast<std::uint64_t>(paragraphs.text.size())))
        return kDrawn;
    paragraphs.format = formatOf(style, height);
    paragraphs.width = records.real(41);
    paragraphs.attachment = records.integer(71, 1);
    constexpr int kExactly = 2;
    paragraphs.exactSpacing = records.integer(73, 1) == kExactly;
    paragraphs.lineSpacing = records.real(44, 1.0);
    readColumns(canvas.drawing().embedded(entity.index), paragraphs);
    const AcGeVector3d given = records.point(210, {0.0, 0.0, 1.0}).asVector();
    const AcGeVector3d normal = given.isZeroLength() ? AcGeVector3d::kZAxis : given.normal();
    AcGeVector3d along = directionOf(records, normal).normal();
    if (along.isZeroLength())
        along = AcGeVector3d::kXAxis;
    const AcGeVector3d up = normal.crossProduct(along).normal();
    const AcGePoint3d origin = records.point(10);
    const QPointF place = canvas.worldPoint(origin);
    const QPointF x = canvas.worldPoint(origin + along) - place;
    const QPointF y = canvas.worldPoint(origin + up) - place;
    const QTransform toWorld(x.x(), x.y(), y.x(), y.y(), place.x(), place.y());
    drawPlaced(canvas, entity, layOut(paragraphs), {}, toWorld);
    return outcome;
}

} // namespace zu::picture
