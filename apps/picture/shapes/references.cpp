#include "shapes/builders.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zu::picture {

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

AcGeMatrix3d planeMatrix(const Records& records) {
    const AcGeVector3d normal = records.point(210, {0.0, 0.0, 1.0}).asVector();
    const bool isPlan = normal == AcGeVector3d::kZAxis || normal.isZeroLength();
    return isPlan ? AcGeMatrix3d() : AcGeMatrix3d::planeToWorld(normal);
}

/// A scale of 0 counts as 1, as in damaged drawings.
double factor(const Records& records, int code) {
    const double value = records.real(code, 1.0);
    return value == 0.0 ? 1.0 : value;
}

AcGeMatrix3d scaleAndTurn(const Records& records) {
    const double angle = std::fmod(records.real(50), 360.0) * kDegree;
    const AcGeMatrix3d scale = AcGeScale3d(factor(records, 41), factor(records, 42), factor(records, 43));
    return angle == 0.0 ? scale : AcGeMatrix3d::rotation(angle, AcGeVector3d::kZAxis) * scale;
}

Outcome drawArray(Canvas& canvas, const Entity& entity, const Block& block) {
    const Records& records = entity.records;
    const std::int64_t columns = std::max(1, records.integer(70, 1));
    const std::int64_t rows = std::max(1, records.integer(71, 1));
    const double angle = std::fmod(records.real(50), 360.0) * kDegree;
    const AcGeMatrix3d plane = planeMatrix(records);
    const AcGePoint3d place = records.point(10);
    const AcGeVector3d along(std::cos(angle), std::sin(angle), 0.0);
    const AcGeVector3d up(-along.y, along.x, 0.0);
    const AcGeMatrix3d figure = scaleAndTurn(records);
    Outcome outcome = kDrawn;
    for (std::int64_t row = 0; row < rows; ++row)
        for (std::int64_t column = 0; column < columns; ++column) {
            if (canvas.isStopped() || !canvas.take(1))
                return outcome;
            const AcGePoint3d cell = place + along * (records.real(44) * static_cast<double>(column)) +
                                     up * (records.real(45) * static_cast<double>(row));
            outcome =
                canvas.block(entity, block, plane * AcGeMatrix3d::translation(cell.asVector()) * figure);
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
    const Block* const block = canvas.drawing().findBlockRaw(entity.records.raw(2));
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
    const AcGeMatrix3d placement = planeMatrix(records) *
                                   AcGeMatrix3d::translation(records.point(10).asVector()) *
                                   scaleAndTurn(records);
    for (AcGePoint3d& point : clip)
        point = placement * point;
    canvas.stroke(entity, clip, true);
    return kDrawn;
}

} // namespace zu::picture
