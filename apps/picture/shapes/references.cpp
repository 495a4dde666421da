#include "shapes/builders.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zu::picture {

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

/// Where a reference lies, and the rows and columns of an array. Read in one pass: drawings consist of
/// references.
struct Placement {
    explicit Placement(const Records& records);

    [[nodiscard]] AcGeMatrix3d matrix() const { return matrix(position); }
    [[nodiscard]] AcGeMatrix3d matrix(const AcGePoint3d& place) const;

    AcGePoint3d position;
    AcGePoint3d scale{1.0, 1.0, 1.0};
    AcGePoint3d normal{0.0, 0.0, 1.0};
    double angle = 0.0; ///< Radians.
    std::int64_t columns = 1;
    std::int64_t rows = 1;
    double columnSpacing = 0.0;
    double rowSpacing = 0.0;
};

Placement::Placement(const Records& records) {
    // A scale of 0 counts as 1, as in damaged drawings.
    const auto factorAt = [&records](std::size_t at) {
        const double value = records.realAt(at, 1.0);
        return value == 0.0 ? 1.0 : value;
    };
    // From the end: of repeated records the first counts.
    for (std::size_t i = records.size(); i-- > 0;) {
        const int code = records.code(i);
        switch (code) {
        case 10:
        case 20:
        case 30:
            position[static_cast<unsigned>(code / 10 - 1)] = records.realAt(i);
            break;
        case 41:
        case 42:
        case 43:
            scale[static_cast<unsigned>(code - 41)] = factorAt(i);
            break;
        case 44:
            columnSpacing = records.realAt(i);
            break;
        case 45:
            rowSpacing = records.realAt(i);
            break;
        case 50:
            angle = std::fmod(records.realAt(i), 360.0) * kDegree;
            break;
        case 70:
            columns = std::max(1, records.integerAt(i, 1));
            break;
        case 71:
            rows = std::max(1, records.integerAt(i, 1));
            break;
        case 210:
        case 220:
        case 230:
            normal[static_cast<unsigned>(code / 10 - 21)] = records.realAt(i);
            break;
        default:
            break;
        }
    }
}

AcGeMatrix3d Placement::matrix(const AcGePoint3d& place) const {
    AcGeMatrix3d figure;
    for (unsigned axis = 0; axis < 3; ++axis)
        figure(axis, axis) = scale[axis];
    if (angle != 0.0)
        figure = AcGeMatrix3d::rotation(angle, AcGeVector3d::kZAxis) * figure;
    figure.setTranslation(place.asVector());
    const AcGeVector3d direction = normal.asVector();
    const bool isPlan = direction == AcGeVector3d::kZAxis || direction.isZeroLength();
    return isPlan ? figure : AcGeMatrix3d::planeToWorld(direction) * figure;
}

Outcome drawArray(Canvas& canvas, const Entity& entity, const Block& block) {
    const Placement placement(entity.records);
    if (placement.rows == 1 && placement.columns == 1)
        return canvas.take(1) ? canvas.block(entity, block, placement.matrix()) : kDrawn;
    const AcGeVector3d along(std::cos(placement.angle), std::sin(placement.angle), 0.0);
    const AcGeVector3d up(-along.y, along.x, 0.0);
    Outcome outcome = kDrawn;
    for (std::int64_t row = 0; row < placement.rows; ++row)
        for (std::int64_t column = 0; column < placement.columns; ++column) {
            if (canvas.isStopped() || !canvas.take(1))
                return outcome;
            const AcGePoint3d cell = placement.position +
                                     along * (placement.columnSpacing * static_cast<double>(column)) +
                                     up * (placement.rowSpacing * static_cast<double>(row));
            outcome = canvas.block(entity, block, placement.matrix(cell));
            if (!outcome.empty())
                return outcome;
        }
    return outcome;
}

/// A block that has the graphics of an entity, such as a dimension, in the space of the entity.
Outcome drawGraphics(Canvas& canvas, const Entity& entity, const QString& name,
                     const AcGeMatrix3d& placement) {
    const Block* const block = canvas.drawing().findBlock(name);
    if (name.isEmpty() || block == nullptr)
        return "the drawing lacks the block with its graphics";
    return canvas.block(entity, *block, placement);
}

} // namespace

/// INSERT: a block once or in rows and columns, then its attributes.
Outcome buildReference(Canvas& canvas, const Entity& entity) {
    const Block* const block = canvas.findBlock(entity.records.raw(2));
    const ObjectRange attributes = canvas.drawing().partsOf(entity.index);
    for (std::size_t i = attributes.first; i < attributes.last; ++i)
        canvas.entityAt(i);
    if (block == nullptr)
        return "its block is not in the drawing";
    if (block->isExternal && block->objects.first >= block->objects.last)
        return "its block is in another drawing";
    return drawArray(canvas, entity, *block);
}

/// The block of a dimension is in world coordinates already.
Outcome buildDimension(Canvas& canvas, const Entity& entity) {
    const AcGePoint3d shift = entity.records.point(12);
    return drawGraphics(canvas, entity, entity.records.text(2), AcGeMatrix3d::translation(shift.asVector()));
}

Outcome buildTable(Canvas& canvas, const Entity& entity) {
    const Records reference = entity.records.subclass("AcDbBlockReference");
    const Records& records = reference.size() > 0 ? reference : entity.records;
    const AcGePoint3d direction = entity.records.subclass("AcDbTable").point(11, {1.0, 0.0, 0.0});
    const AcGeMatrix3d turn =
        AcGeMatrix3d::rotation(std::atan2(direction.y, direction.x), AcGeVector3d::kZAxis);
    return drawGraphics(canvas, entity, records.text(2),
                        AcGeMatrix3d::translation(records.point(10).asVector()) * turn);
}

/// VIEWPORT of a layout: its frame and model space as it shows it.
Outcome buildViewport(Canvas& canvas, const Entity& entity) {
    const Records& records = entity.records;
    const AcGePoint3d centre = records.point(10);
    const double width = records.real(40);
    const double height = records.real(41);
    const double viewHeight = records.real(45);
    if (canvas.options().layout.isEmpty())
        return "viewports show in layouts only";
    constexpr int kPaperItself = 1;
    if (records.integer(69) == kPaperItself)
        return kNoGraphics;
    if (!(width > 0.0) || !(height > 0.0))
        return "it has no size";
    const QRectF frame(centre.x - width / 2.0, centre.y - height / 2.0, width, height);
    QPainterPath path;
    path.addRect(frame);
    canvas.stroke(entity, path, canvas.planeOf(entity, 0.0));
    if (!(viewHeight > 0.0) || records.integer(68, 1) == 0)
        return kDrawn;
    const double scale = height / viewHeight;
    const AcGePoint3d view(records.real(12), records.real(22), 0.0);
    const AcGeVector3d direction = records.point(16, {0.0, 0.0, 1.0}).asVector();
    const double twist = std::fmod(records.real(51), 360.0) * kDegree;
    const AcGeMatrix3d toView =
        AcGeMatrix3d::rotation(twist, AcGeVector3d::kZAxis) *
        (direction.isZeroLength() ? AcGeMatrix3d() : AcGeMatrix3d::worldToPlane(direction)) *
        AcGeMatrix3d::translation(-records.point(17).asVector());
    const AcGeMatrix3d toPaper = AcGeMatrix3d::translation(centre.asVector()) * AcGeMatrix3d::scaling(scale) *
                                 AcGeMatrix3d::translation(-view.asVector());
    std::vector<std::uint64_t> frozen;
    for (std::size_t i = 0; i < records.size(); ++i)
        if (records.code(i) == 331 || records.code(i) == 341)
            frozen.push_back(records.handleAt(i));
    canvas.space(canvas.drawing().modelSpace(), toPaper * toView, frame, frozen);
    return kDrawn;
}

/// IMAGE and WIPEOUT: the frame, by the clipping polygon where there is one.
Outcome buildImage(Canvas& canvas, const Entity& entity) {
    const Records& records = entity.records;
    const AcGePoint3d corner = records.point(10);
    const AcGeVector3d u = records.point(11).asVector();
    const AcGeVector3d v = records.point(12).asVector();
    // Clip points count pixels from the middle of the first one, y downwards.
    const double height = records.real(23, 1.0);
    std::vector<AcGePoint3d> clip = records.points(14);
    constexpr int kRectangle = 1;
    if (clip.size() == 2 && records.integer(71) == kRectangle)
        clip = {clip[0], {clip[1].x, clip[0].y, 0.0}, clip[1], {clip[0].x, clip[1].y, 0.0}};
    if (clip.size() < 3) {
        const double width = records.real(13, 1.0);
        clip = {{-0.5, -0.5, 0.0},
                {width - 0.5, -0.5, 0.0},
                {width - 0.5, height - 0.5, 0.0},
                {-0.5, height - 0.5, 0.0}};
    }
    std::vector<AcGePoint3d> frame;
    frame.reserve(clip.size());
    for (const AcGePoint3d& point : clip)
        frame.push_back(corner + u * (point.x + 0.5) + v * (height - point.y - 0.5));
    canvas.stroke(entity, frame, true);
    return kDrawn;
}

/// A drawing or document below this one: its clipping polygon.
Outcome buildUnderlay(Canvas& canvas, const Entity& entity) {
    const Records& records = entity.records;
    std::vector<AcGePoint3d> clip = records.points(11);
    if (clip.size() == 2)
        clip = {clip[0], {clip[1].x, clip[0].y, 0.0}, clip[1], {clip[0].x, clip[1].y, 0.0}};
    if (clip.size() < 3)
        return "its contents are in another file";
    const AcGeMatrix3d placement = Placement(records).matrix();
    for (AcGePoint3d& point : clip)
        point = placement * point;
    canvas.stroke(entity, clip, true);
    return kDrawn;
}

} // namespace zu::picture
