#include "shapes/canvas.h"

#include "shapes/canvas_limits.h"
#include "shapes/letters.h"
#include "shapes/linetype_texts.h"
#include "text_outline.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zu::picture {

namespace {

constexpr double kMostDashesPerShape = 10'000.0;

/// An upper bound of the path's length.
double lengthOf(const QPainterPath& path) {
    double length = 0.0;
    for (int i = 1; i < path.elementCount(); ++i) {
        const auto& from = path.elementAt(i - 1);
        const auto& to = path.elementAt(i);
        if (!to.isMoveTo())
            length += std::hypot(to.x - from.x, to.y - from.y);
    }
    return length;
}

} // namespace

Canvas::Canvas(const Drawing& drawing, const SceneOptions& options, const ShapeSink& sink, Purpose purpose)
    : drawing_(drawing), options_(options), sink_(sink), purpose_(purpose), styles_(drawing),
      left_(options.most) {}

bool Canvas::take(std::uint64_t work) {
    if (isStopped_)
        return false;
    if (work > left_) {
        isStopped_ = isTooMuch_ = true;
        return false;
    }
    left_ -= work;
    return true;
}

QTransform Canvas::planeToWorld(const AcGeVector3d& normal, double height) const {
    const bool isFlat = normal.x == 0.0 && normal.y == 0.0 && normal.z > 0.0;
    const AcGeMatrix3d m = isFlat ? toWorld_ : toWorld_ * AcGeMatrix3d::planeToWorld(normal);
    const auto& e = m.entry;
    return {e[0][0], e[1][0], e[0][1], e[1][1], e[0][2] * height + e[0][3], e[1][2] * height + e[1][3]};
}

QTransform Canvas::planeOf(const Entity& entity, double height) const {
    const AcGePoint3d normal = entity.records.point(210, {0.0, 0.0, 1.0});
    const AcGeVector3d direction = normal.asVector();
    return planeToWorld(direction.isZeroLength() ? AcGeVector3d::kZAxis : direction, height);
}

QPointF Canvas::worldPoint(const AcGePoint3d& point) const {
    const AcGePoint3d placed = toWorld_ * point;
    return {placed.x, placed.y};
}

void Canvas::emitShape(const Entity& entity, Shape::Kind kind, const QRectF& box) {
    shape_.kind = kind;
    shape_.lineWeight = entity.look.lineWeight;
    const bool hasDashes = kind == Shape::Kind::stroke;
    const Linetype* const linetype = hasDashes ? entity.look.linetype : nullptr;
    lacksShapes_ = lacksShapes_ || (linetype != nullptr && linetype->hasShapes);
    if (recorded_ == nullptr) {
        deliver(linetype, entity.look.linetypeScale, box);
        return;
    }
    recorded_->add(shape_, linetype, entity.look.linetypeScale, box);
}

/// Gives the shape to the sink.
void Canvas::deliver(const Linetype* linetype, double linetypeScale, const QRectF& box) {
    shape_.dashes.clear();
    if (isStopped_)
        return;
    if (isSpeck(box)) {
        deliverSpeck(box);
        return;
    }
    if (linetype == nullptr) {
        isStopped_ = !sink_(shape_);
        return;
    }
    const double scale = linetypeScale * styles_.linetypeScale();
    setDashes(*linetype, scale);
    isStopped_ = !sink_(shape_) || isStopped_;
    if (!linetype->texts.empty() && !isMeasuring())
        deliverTexts(*linetype, scale);
}

/// As many as along a line with dashes; none that are too small to see.
void Canvas::deliverTexts(const Linetype& linetype, double scale) {
    const double period = std::abs(linetype.length * scale);
    const double repeats = period > 0.0 ? lengthOf(shape_.path) / period : INFINITY;
    if (!(repeats * static_cast<double>(linetype.texts.size()) < kMostDashesPerShape))
        return;
    const QPainterPath line = std::exchange(shape_.path, {});
    shape_.kind = Shape::Kind::text;
    shape_.dashes.clear();
    for (const LinetypeText& text : linetype.texts) {
        const QString& letters = text.text;
        if (letters.trimmed().isEmpty() || !(std::abs(text.height * scale) >= options_.resolution))
            continue;
        shape_.run = runOf(letters, *text.style);
        for (const QTransform& place : placesAlong(line, text, scale, period)) {
            if (!take(kWorkPerLetter * static_cast<std::uint64_t>(letters.size())))
                return;
            shape_.run.place = place;
            if (!sink_(shape_))
                isStopped_ = true;
        }
    }
    shape_.run = {};
}

/// Letters are illegible when they are low, however long the text is.
bool Canvas::isSpeck(const QRectF& box) const {
    if (shape_.kind == Shape::Kind::dot)
        return false;
    const bool isText = shape_.kind == Shape::Kind::text;
    return (isText ? std::min(box.width(), box.height()) : std::max(box.width(), box.height())) <
           options_.resolution;
}

bool Canvas::isOutside(const QRectF& box) const {
    const QRectF& frame = options_.frame;
    return !frame.isNull() && (box.left() > frame.right() || box.right() < frame.left() ||
                               box.top() > frame.bottom() || box.bottom() < frame.top());
}

/// A line as long as the shape, unless one of the colour is there already.
void Canvas::deliverSpeck(const QRectF& box) {
    const double size = options_.resolution;
    const QPointF centre = box.center();
    if (!specks_.add({std::floor(centre.x() / size), std::floor(centre.y() / size)}, shape_.colour))
        return;
    const Shape::Kind kind = shape_.kind;
    shape_.kind = Shape::Kind::stroke;
    shape_.path.clear();
    shape_.path.moveTo(box.topLeft());
    shape_.path.lineTo(box.bottomRight());
    if (!sink_(shape_))
        isStopped_ = true;
    shape_.kind = kind;
}

/// A line with too many dashes to see them is drawn continuous.
void Canvas::setDashes(const Linetype& linetype, double scale) {
    double pattern = 0.0;
    for (const double dash : linetype.dashes) {
        shape_.dashes.push_back(dash * scale);
        pattern += std::abs(dash * scale);
    }
    const double repeats = pattern > 0.0 ? lengthOf(shape_.path) / pattern : 0.0;
    const double dashes = repeats * static_cast<double>(shape_.dashes.size());
    if (!(pattern > 0.0) || !(dashes < kMostDashesPerShape))
        shape_.dashes.clear();
    else
        take(static_cast<std::uint64_t>(dashes));
}

void Canvas::drawPath(const Entity& entity, Shape::Kind kind, const QPainterPath& path,
                      const QTransform& toWorld) {
    if (path.isEmpty() || !take(static_cast<std::uint64_t>(path.elementCount())))
        return;
    shape_.path = toWorld.map(path);
    const QRectF box = shape_.path.controlPointRect();
    if (!isNear(box)) {
        isOutOfRange_ = true;
        return;
    }
    shape_.colour = entity.look.colour;
    emitShape(entity, kind, box);
}

void Canvas::stroke(const Entity& entity, const QPainterPath& path, const QTransform& toWorld) {
    drawPath(entity, Shape::Kind::stroke, path, toWorld);
}

void Canvas::stroke(const Entity& entity, const std::vector<AcGePoint3d>& points, bool closed) {
    if (points.empty() || !take(points.size()))
        return;
    shape_.path.clear();
    for (std::size_t i = 0; i < points.size(); ++i) {
        const QPointF place = worldPoint(points[i]);
        if (!isNear({place, place})) {
            isOutOfRange_ = true;
            return;
        }
        if (i == 0)
            shape_.path.moveTo(place);
        else
            shape_.path.lineTo(place);
    }
    if (closed)
        shape_.path.closeSubpath();
    shape_.colour = entity.look.colour;
    emitShape(entity, Shape::Kind::stroke, shape_.path.controlPointRect());
}

void Canvas::line(const Entity& entity, const AcGePoint3d& from, const AcGePoint3d& to) {
    stroke(entity, std::vector<AcGePoint3d>{from, to});
}

void Canvas::fill(const Entity& entity, const QPainterPath& path, const QTransform& toWorld) {
    drawPath(entity, Shape::Kind::fill, path, toWorld);
}

void Canvas::dot(const Entity& entity, const AcGePoint3d& place) {
    const QPointF point = worldPoint(place);
    if (!isNear({point, point})) {
        isOutOfRange_ = true;
        return;
    }
    shape_.path.clear();
    shape_.path.moveTo(point);
    shape_.path.lineTo(point);
    shape_.colour = entity.look.colour;
    emitShape(entity, Shape::Kind::dot, {point, point});
}

void Canvas::text(const Entity& entity, TextRun run, const QTransform& toWorld) {
    text(entity, std::move(run), toWorld, entity.look.colour);
}

void Canvas::text(const Entity& entity, TextRun run, const QTransform& toWorld, const Colour& colour) {
    if (run.text.isEmpty())
        return;
    run.place = run.place * toWorld;
    const QRectF box = cornersOf(run).boundingRect();
    if (!isNear(box)) {
        isOutOfRange_ = true;
        return;
    }
    shape_.kind = Shape::Kind::text;
    // Blocks multiply their letters, and legible ones take a painter's time. All others are as many as in the
    // file.
    const bool isCheap = !isInBlock() && (isMeasuring() || isSpeck(box) || isOutside(box));
    if (!take(isCheap ? 1 : kWorkPerLetter * static_cast<std::uint64_t>(run.text.size())))
        return;
    shape_.path.clear();
    shape_.run = std::move(run);
    shape_.colour = colour;
    emitShape(entity, Shape::Kind::text, box);
    shape_.run = {};
}

QRectF Canvas::frame() {
    if (recorded_ != nullptr)
        recorded_->isComplete = false; // what depends on the frame depends on the place
    if (!frame_)
        frame_ = options_.frame.isNull() ? measureScene(drawing_, options_).box : options_.frame;
    return *frame_;
}

} // namespace zu::picture
