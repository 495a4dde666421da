#include "shapes/builders.h"
#include "shapes/curve_path.h"
#include "shapes/paragraphs.h"

#include <zuhost/spline_points.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <utility>

namespace zu::picture {

using zuhost::fitCurve;

namespace {

constexpr int kPerSpan = 12;
constexpr double kTurn = 2.0 * std::numbers::pi;

/// Of a dimension style, by its name, with the drawing's own for one that is missing.
double dimensionValue(Canvas& canvas, const QString& style, int code, const char* variable, double missing) {
    for (const std::size_t entry : canvas.drawing().entries("DIMSTYLE")) {
        const Records records = canvas.drawing().records(entry);
        if (records.has(code) && records.text(2).compare(style, Qt::CaseInsensitive) == 0)
            return records.real(code, missing);
    }
    return canvas.drawing().variable(variable).real(40, missing);
}

double dimensionScale(Canvas& canvas, const QString& style) {
    const double scale = dimensionValue(canvas, style, 40, "$DIMSCALE", 1.0);
    return scale > 0.0 ? scale : 1.0;
}

/// A filled arrow head at the first point of a line.
void drawArrow(Canvas& canvas, const Entity& entity, const AcGePoint3d& tip, const AcGePoint3d& next,
               double size) {
    const AcGeVector3d back = (next - tip).normal() * size;
    // A line shorter than two heads has none, as in dimensions.
    if (!(size > 0.0) || back.isZeroLength() || tip.distanceTo(next) < 2.0 * size * (1.0 - 1e-9))
        return;
    const AcGeVector3d aside = AcGeVector3d(-back.y, back.x, 0.0) / 6.0;
    QPainterPath head(canvas.worldPoint(tip));
    head.lineTo(canvas.worldPoint(tip + back + aside));
    head.lineTo(canvas.worldPoint(tip + back - aside));
    head.closeSubpath();
    canvas.fill(entity, head, {});
}

} // namespace

Outcome buildLeader(Canvas& canvas, const Entity& entity) {
    constexpr double kUsualArrow = 0.18;
    const Records& records = entity.records;
    std::vector<AcGePoint3d> points = records.points(10);
    if (points.size() < 2)
        return "it has fewer than two points";
    const AcGePoint3d tip = points[0];
    const AcGePoint3d next = points[1];
    const bool isSpline = records.integer(72) == 1;
    if (!canvas.take(points.size() * kPerSpan))
        return kDrawn;
    if (isSpline)
        points = fitCurve(points, false, {}, {}, kPerSpan);
    canvas.stroke(entity, points);
    if (records.integer(71, 1) == 0)
        return kDrawn;
    const QString style = records.text(3);
    drawArrow(canvas, entity, tip, next,
              dimensionValue(canvas, style, 41, "$DIMASZ", kUsualArrow) * dimensionScale(canvas, style));
    return kDrawn;
}

namespace {

/// The contents of a multileader. Its records are nested in braces: the text or block, and leaders of lines.
class MultileaderReader {
public:
    struct Leader {
        AcGePoint3d last; ///< Where its lines meet.
        bool hasLast = false;
        AcGeVector3d dogleg;
        double doglegLength = 0.0;
        std::vector<std::vector<AcGePoint3d>> lines;
    };

    explicit MultileaderReader(const Records& records) : records_(records) {
        std::size_t at = records.position(300);
        contextFirst_ = std::min(at + 1, records.size());
        for (at = contextFirst_; at < records.size() && records.code(at) != 301; ++at)
            at = read(at);
        contextLast_ = std::min(at, records.size());
    }

    [[nodiscard]] const std::vector<Leader>& leaders() const { return leaders_; }
    /// The records of the text or block, without those of leaders.
    [[nodiscard]] Records context() const { return {context_, form_}; }
    [[nodiscard]] Records rest() const { return records_.part(contextLast_, records_.size()); }

private:
    std::size_t read(std::size_t at) {
        constexpr int kLeaderBegins = 302;
        if (records_.code(at) != kLeaderBegins) {
            context_.push_back(records_.tags()[at]);
            return at;
        }
        return readLeader(at + 1);
    }

    std::size_t readLeader(std::size_t at) {
        constexpr int kLineBegins = 304;
        constexpr int kLeaderEnds = 303;
        Leader leader;
        for (; at < records_.size() && records_.code(at) != kLeaderEnds; ++at) {
            if (records_.code(at) == kLineBegins) {
                at = readLine(at + 1, leader);
            } else if (records_.code(at) == 10) {
                leader.last = records_.pointAt(at);
                leader.hasLast = true;
            } else if (records_.code(at) == 11) {
                leader.dogleg = records_.pointAt(at).asVector();
            } else if (records_.code(at) == 40) {
                leader.doglegLength = records_.realAt(at);
            }
        }
        leaders_.push_back(std::move(leader));
        return at;
    }

    std::size_t readLine(std::size_t at, Leader& leader) {
        constexpr int kLineEnds = 305;
        std::vector<AcGePoint3d> points;
        for (; at < records_.size() && records_.code(at) != kLineEnds; ++at)
            if (records_.code(at) == 10)
                points.push_back(records_.pointAt(at));
        leader.lines.push_back(std::move(points));
        return at;
    }

    const Records& records_;
    const ValueForm& form_ = records_.form();
    std::vector<Tag> context_;
    std::vector<Leader> leaders_;
    std::size_t contextFirst_ = 0;
    std::size_t contextLast_ = 0;
};

void drawLines(Canvas& canvas, const Entity& entity, const MultileaderReader::Leader& leader, int type,
               double arrow) {
    constexpr int kSpline = 2;
    for (std::vector<AcGePoint3d> points : leader.lines) {
        if (leader.hasLast)
            points.push_back(leader.last);
        if (points.size() < 2 || !canvas.take(points.size() * kPerSpan))
            continue;
        const AcGePoint3d tip = points[0];
        const AcGePoint3d next = points[1];
        if (type == kSpline)
            points = fitCurve(points, false, {}, {}, kPerSpan);
        canvas.stroke(entity, points);
        drawArrow(canvas, entity, tip, next, arrow);
    }
    if (leader.hasLast && leader.doglegLength > 0.0 && !leader.dogleg.isZeroLength())
        canvas.line(entity, leader.last, leader.last + leader.dogleg.normal() * leader.doglegLength);
}

void drawNote(Canvas& canvas, const Entity& entity, const Records& context, const QString& text) {
    const TextStyle& style = canvas.styles().textStyle(context.handle(340));
    Paragraphs paragraphs;
    const double height = context.real(41, style.height);
    if (text.trimmed().isEmpty() || !(height > 0.0) || !canvas.take(static_cast<std::uint64_t>(text.size())))
        return;
    paragraphs.text = text.left(4000);
    paragraphs.format = formatOf(style, height);
    paragraphs.width = context.real(43);
    paragraphs.attachment = std::clamp(context.integer(171, 1), 1, 3);
    paragraphs.lineSpacing = context.real(45, 1.0);
    const AcGePoint3d place = context.point(12);
    AcGeVector3d along = context.point(13, {1.0, 0.0, 0.0}).asVector().normal();
    if (along.isZeroLength())
        along = AcGeVector3d::kXAxis;
    const QPointF origin = canvas.worldPoint(place);
    const QPointF x = canvas.worldPoint(place + along) - origin;
    const QPointF y = canvas.worldPoint(place + AcGeVector3d(-along.y, along.x, 0.0)) - origin;
    drawPlaced(canvas, entity, layOut(paragraphs), {},
               QTransform(x.x(), x.y(), y.x(), y.y(), origin.x(), origin.y()));
}

/// Where a multileader's block lies. Its records also hold this as a matrix, which some programs leave alone.
AcGeMatrix3d placementOf(const Records& context) {
    const AcGePoint3d scale = context.point(16, {1.0, 1.0, 1.0});
    return AcGeMatrix3d::translation(context.point(15).asVector()) *
           AcGeMatrix3d::rotation(std::fmod(context.real(46), kTurn), AcGeVector3d::kZAxis) *
           AcGeScale3d(scale.x, scale.y, scale.z);
}

/// The values of the attributes of a multileader's block, by the handles of their definitions.
std::map<std::uint64_t, QString> attributesOf(const Records& records) {
    std::map<std::uint64_t, QString> values;
    std::uint64_t definition = 0;
    for (std::size_t i = 0; i < records.size(); ++i)
        if (records.code(i) == 330)
            definition = records.handleAt(i);
        else if (records.code(i) == 302 && definition != 0)
            values.try_emplace(std::exchange(definition, 0), records.textAt(i));
    return values;
}

Outcome drawBlock(Canvas& canvas, const Entity& entity, const Records& context, const Records& rest) {
    const Block* const block = canvas.drawing().findBlock(context.handle(341));
    if (block == nullptr)
        return "its block is not in the drawing";
    const AcGeMatrix3d placement = placementOf(context);
    const Outcome outcome = canvas.block(entity, *block, placement);
    const std::map<std::uint64_t, QString> values = attributesOf(rest);
    if (outcome.empty() && !values.empty())
        canvas.within(entity, *block, placement, [&](const Entity& definition) {
            const auto value = values.find(definition.records.handle(5));
            if (definition.type == "ATTDEF" && value != values.end())
                drawValue(canvas, definition, value->second);
        });
    return outcome;
}

} // namespace

/// MULTILEADER: its lines with arrows, its text or block.
Outcome buildMultileader(Canvas& canvas, const Entity& entity) {
    const MultileaderReader reader(entity.records);
    const Records context = reader.context();
    const Records rest = reader.rest();
    const int type = rest.integer(170, 1);
    const double arrow = context.real(140, rest.real(42));
    if (type != 0)
        for (const MultileaderReader::Leader& leader : reader.leaders())
            drawLines(canvas, entity, leader, type, arrow);
    if (context.integer(290) != 0)
        drawNote(canvas, entity, context, context.text(304));
    if (context.integer(296) != 0)
        return drawBlock(canvas, entity, context, rest);
    return context.size() == 0 ? "it has no contents" : kDrawn;
}

namespace {

/// The characters of the tolerance symbols that the font of symbols has at letters.
QString symbolOf(QChar letter) {
    static const QString kLetters = QStringLiteral("abcdefghijklmnprstu");
    static const QString kSymbols = QStringLiteral("∠⊥⏥⌓○∥⌭↗⌯⌖⌒ⓁⓂ⌀Ⓟ◎Ⓢ⌰⏤");
    const qsizetype at = kLetters.indexOf(letter);
    return at >= 0 && at < kSymbols.size() ? QString(kSymbols[at]) : QString(letter);
}

/// A cell's text: "{\Fgdt;j}" is a symbol.
QString plainCell(const QString& cell) {
    QString result;
    for (qsizetype at = 0; at < cell.size(); ++at) {
        const qsizetype end = cell.indexOf(u'}', at);
        if (cell[at] == u'{' && end > at) {
            result += symbolOf(cell[end - 1]);
            at = end;
        } else {
            result += cell[at];
        }
    }
    return resolveCodes(result).text;
}

} // namespace

/// TOLERANCE: rows of cells with a frame.
Outcome buildTolerance(Canvas& canvas, const Entity& entity) {
    constexpr double kUsualHeight = 0.18;
    const Records& records = entity.records;
    const QString style = records.text(3);
    const double height =
        dimensionValue(canvas, style, 140, "$DIMTXT", kUsualHeight) * dimensionScale(canvas, style);
    const QString text = records.text(1).left(4000);
    if (text.trimmed().isEmpty() || !(height > 0.0))
        return "it has no text";
    const AcGePoint3d along = records.point(11, {1.0, 0.0, 0.0});
    const AcGePoint3d place = records.point(10);
    QTransform toPlane = QTransform::fromTranslate(place.x, place.y);
    toPlane.rotateRadians(std::atan2(along.y, along.x));
    toPlane.scale(height, height);
    const QTransform toWorld = canvas.planeOf(entity, place.z);
    const TextStyle& letters = canvas.styles().textStyle(QString());
    QPainterPath frames;
    double top = 1.0;
    for (const QString& row : text.split(u'\n')) {
        double x = 0.0;
        for (const QString& cell :
             row.split(QStringLiteral("%%v"), Qt::SkipEmptyParts, Qt::CaseInsensitive)) {
            TextRun run = runOf(plainCell(cell), letters);
            const double width = run.width + 1.0;
            frames.addRect(x, top - 2.0, width, 2.0);
            run.place = QTransform::fromTranslate(x + 0.5, top - 1.5) * toPlane;
            canvas.text(entity, std::move(run), toWorld);
            x += width;
        }
        top -= 2.0;
    }
    canvas.stroke(entity, frames, toPlane * toWorld);
    return kDrawn;
}

} // namespace zu::picture
