#include "shapes/canvas.h"

#include "text_outline.h"

#include <algorithm>
#include <cmath>

namespace zu::picture {

namespace {

constexpr double kFarthest = 1e12;
constexpr std::size_t kDeepestNesting = 32;
constexpr std::uint64_t kWorkPerEntity = 10;
constexpr std::uint64_t kWorkPerLetter = 20;
constexpr double kMostDashesPerShape = 10'000.0;

bool isNear(const QRectF& box) {
    const auto isWithin = [](double value) { return std::abs(value) < kFarthest; };
    return isWithin(box.left()) && isWithin(box.right()) && isWithin(box.top()) && isWithin(box.bottom());
}

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

void Canvas::emitShape(const Entity& entity, Shape::Kind kind) {
    shape_.kind = kind;
    shape_.lineWeight = entity.look.lineWeight;
    shape_.dashes.clear();
    if (kind == Shape::Kind::stroke && entity.look.linetype != nullptr)
        setDashes(entity);
    if (!isStopped_ && !sink_(shape_))
        isStopped_ = true;
}

/// A line with too many dashes to see them is drawn continuous.
void Canvas::setDashes(const Entity& entity) {
    const double scale = entity.look.linetypeScale * styles_.linetypeScale();
    double pattern = 0.0;
    for (const double dash : entity.look.linetype->dashes) {
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

void Canvas::stroke(const Entity& entity, const QPainterPath& path, const QTransform& toWorld) {
    if (path.isEmpty() || !take(static_cast<std::uint64_t>(path.elementCount())))
        return;
    shape_.path = toWorld.map(path);
    if (!isNear(shape_.path.controlPointRect())) {
        isOutOfRange_ = true;
        return;
    }
    shape_.colour = entity.look.colour;
    emitShape(entity, Shape::Kind::stroke);
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
    emitShape(entity, Shape::Kind::stroke);
}

void Canvas::line(const Entity& entity, const AcGePoint3d& from, const AcGePoint3d& to) {
    stroke(entity, std::vector<AcGePoint3d>{from, to});
}

void Canvas::fill(const Entity& entity, const QPainterPath& path, const QTransform& toWorld) {
    if (path.isEmpty() || !take(static_cast<std::uint64_t>(path.elementCount())))
        return;
    shape_.path = toWorld.map(path);
    if (!isNear(shape_.path.controlPointRect())) {
        isOutOfRange_ = true;
        return;
    }
    shape_.path.setFillRule(path.fillRule());
    shape_.colour = entity.look.colour;
    emitShape(entity, Shape::Kind::fill);
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
    emitShape(entity, Shape::Kind::dot);
}

void Canvas::text(const Entity& entity, TextRun run, const QTransform& toWorld) {
    text(entity, std::move(run), toWorld, entity.look.colour);
}

void Canvas::text(const Entity& entity, TextRun run, const QTransform& toWorld, const Colour& colour) {
    if (run.text.isEmpty() || !take(kWorkPerLetter * static_cast<std::uint64_t>(run.text.size())))
        return;
    run.place = run.place * toWorld;
    if (!isNear(cornersOf(run).boundingRect())) {
        isOutOfRange_ = true;
        return;
    }
    shape_.path.clear();
    shape_.run = std::move(run);
    shape_.colour = colour;
    emitShape(entity, Shape::Kind::text);
}

/// What blocks set for what they contain, restored at their end.
struct Canvas::Inherited {
    explicit Inherited(Canvas& canvas)
        : canvas_(canvas), toWorld_(canvas.toWorld_), around_(canvas.around_) {}
    ~Inherited() {
        canvas_.toWorld_ = toWorld_;
        canvas_.around_ = around_;
    }
    Inherited(const Inherited&) = delete;
    Inherited& operator=(const Inherited&) = delete;

private:
    Canvas& canvas_;
    AcGeMatrix3d toWorld_;
    std::optional<Look> around_;
};

Outcome Canvas::block(const Entity& entity, const Block& block, const AcGeMatrix3d& placement) {
    if (std::find(blocks_.begin(), blocks_.end(), &block) != blocks_.end())
        return "its block contains itself";
    if (blocks_.size() >= kDeepestNesting)
        return "it is nested too deeply";
    const Inherited restored(*this);
    blocks_.push_back(&block);
    toWorld_ = toWorld_ * placement * AcGeMatrix3d::translation(-block.base.asVector());
    around_ = entity.look;
    for (std::size_t i = block.objects.first; i < block.objects.last && !isStopped_;
         i = drawing_.partsOf(i).last)
        draw(i);
    blocks_.pop_back();
    return kDrawn;
}

void Canvas::space(const std::vector<std::size_t>& entities, const AcGeMatrix3d& placement,
                   const QRectF& clip, const std::vector<std::uint64_t>& frozenLayers) {
    if (spaces_ > 0 || !blocks_.empty())
        return;
    const Inherited restored(*this);
    ++spaces_;
    toWorld_ = toWorld_ * placement;
    shape_.clip = clip;
    frozen_ = frozenLayers;
    for (std::size_t i = 0; i < entities.size() && !isStopped_; ++i)
        draw(entities[i]);
    frozen_.clear();
    shape_.clip = {};
    --spaces_;
}

void Canvas::entityAt(std::size_t index) {
    draw(index);
}

void Canvas::topLevel(const std::vector<std::size_t>& entities) {
    for (const std::size_t entity : entities) {
        if (isStopped_)
            return;
        const Object& object = drawing_.object(entity);
        const Records records = drawing_.records(entity);
        if (options_.shows &&
            !options_.shows({object.handle, object.type, styles_.layer(records.raw(8)).name}))
            continue;
        current_ = entity;
        shape_.source = object.handle;
        draw(entity);
    }
}

Look Canvas::lookOf(const Records& records) const {
    Look look;
    look.layer = &styles_.layer(records.raw(8));
    const bool isInBlock = around_.has_value();
    const std::string_view layer = records.raw(8);
    if (isInBlock && (layer.empty() || layer == "0"))
        look.layer = around_->layer;
    const auto own = colourOf(records);
    const bool isByBlock = !own && records.integer(62, 256) == 0;
    look.colour = own ? *own : isByBlock ? (isInBlock ? around_->colour : Colour()) : look.layer->colour;

    constexpr int kByBlock = -2;
    constexpr int kDefault = -3;
    const int weight = records.integer(370, -1);
    look.lineWeight = weight >= 0          ? weight
                      : weight == kDefault ? Styles::kDefaultWeight
                      : weight == kByBlock ? (isInBlock ? around_->lineWeight : Styles::kDefaultWeight)
                                           : look.layer->lineWeight;

    const QString linetype = records.has(6) ? records.text(6).toUpper() : QString();
    look.linetype = linetype.isEmpty() || linetype == u"BYLAYER" ? look.layer->linetype
                    : linetype == u"BYBLOCK"                     ? (isInBlock ? around_->linetype : nullptr)
                                                                 : styles_.linetype(linetype);
    look.linetypeScale = records.real(48, 1.0);
    return look;
}

Outcome Canvas::hiddenBy(const Entity& entity) const {
    const Layer& layer = *entity.look.layer;
    if (entity.records.integer(60) != 0)
        return "it is marked invisible";
    if (layer.isOff && entity.type != "INSERT")
        return "its layer is off";
    if (layer.isFrozen || std::find(frozen_.begin(), frozen_.end(), layer.handle) != frozen_.end())
        return "its layer is frozen";
    if (!layer.isPlotted)
        return "its layer is not plotted";
    if (options_.showsLayer && !options_.showsLayer(layer.name))
        return kLayerFilteredOut;
    return {};
}

void Canvas::draw(std::size_t index) {
    const Object& object = drawing_.object(index);
    if (object.type == "SEQEND" || !take(kWorkPerEntity))
        return;
    const Records records = drawing_.records(index);
    const Entity entity{index, object.type, records, lookOf(records)};
    Outcome outcome = hiddenBy(entity);
    if (outcome.empty()) {
        const Builder builder = builderOf(object.type);
        const bool wasOutOfRange = isOutOfRange_;
        isOutOfRange_ = false;
        outcome = builder != nullptr ? builder(*this, entity) : "pictures do not support its type";
        if (isOutOfRange_ && outcome.empty())
            outcome = "its coordinates are out of range";
        isOutOfRange_ = wasOutOfRange;
    }
    count(index, outcome);
}

/// Once for each entity of the file, however many references show it.
void Canvas::count(std::size_t index, Outcome outcome) {
    if (counted_.size() <= index)
        counted_.resize(index + 1);
    if (counted_[index] || outcome == kNoGraphics)
        return;
    counted_[index] = true;
    std::string type(drawing_.object(index).type);
    if (outcome.empty())
        ++drawn_[type];
    else
        ++notDrawn_[{std::move(type), std::string(outcome)}];
}

SceneReport Canvas::report() const {
    SceneReport report;
    report.drawn = drawn_;
    for (const auto& [what, number] : notDrawn_)
        report.notDrawn.push_back({what.first, number, what.second});
    report.isComplete = !isStopped_;
    report.isTooMuch = isTooMuch_;
    return report;
}

QRectF Canvas::frame() {
    if (!frame_)
        frame_ = options_.frame.isNull() ? measureScene(drawing_, options_).box : options_.frame;
    return *frame_;
}

} // namespace zu::picture
