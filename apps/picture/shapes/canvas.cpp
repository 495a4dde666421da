#include "shapes/canvas.h"

#include "shapes/letters.h"
#include "shapes/linetype_texts.h"
#include "text_outline.h"

#include <algorithm>
#include <cmath>
#include <utility>

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

const Block* Canvas::findBlock(std::string_view name) {
    const auto [known, isNew] = knownBlocks_.try_emplace(name, nullptr);
    if (isNew)
        known->second = drawing_.findBlock(drawing_.decode(name));
    return known->second;
}

Outcome Canvas::block(const Entity& entity, const Block& block, const AcGeMatrix3d& placement) {
    if (std::find(blocks_.begin(), blocks_.end(), &block) != blocks_.end())
        return "its block contains itself";
    if (blocks_.size() >= kDeepestNesting)
        return "it is nested too deeply";
    const Inherited restored(*this);
    const AcGeMatrix3d inner = toWorld_ * placement * AcGeMatrix3d::translation(-block.base.asVector());
    const auto& e = inner.entry;
    const bool isUpright = e[0][2] == 0.0 && e[1][2] == 0.0;
    around_ = entity.look;
    blocks_.push_back(&block);
    const BlockPicture* const picture = isUpright ? pictureOf(entity, block) : nullptr;
    if (picture != nullptr) {
        drawPicture(*picture, {e[0][0], e[1][0], e[0][1], e[1][1], e[0][3], e[1][3]});
    } else {
        toWorld_ = inner;
        drawContents(block);
    }
    blocks_.pop_back();
    return kDrawn;
}

void Canvas::within(const Entity& entity, const Block& block, const AcGeMatrix3d& placement,
                    const std::function<void(const Entity&)>& draw) {
    const Inherited restored(*this);
    toWorld_ = toWorld_ * placement * AcGeMatrix3d::translation(-block.base.asVector());
    around_ = entity.look;
    for (std::size_t i = block.objects.first; i < block.objects.last && take(kWorkPerEntity);
         i = drawing_.partsOf(i).last)
        if (const Entity inner = entityOf(i); hiddenBy(inner).empty())
            draw(inner);
}

void Canvas::drawContents(const Block& block) {
    for (std::size_t i = block.objects.first; i < block.objects.last && !isStopped_;
         i = drawing_.partsOf(i).last)
        draw(i);
}

/// Returns the shapes of a block in its own coordinates, recorded when it is first shown; null when they have
/// to be produced in place. Blocks within a recorded one become part of it.
const BlockPicture* Canvas::pictureOf(const Entity& entity, const Block& block) {
    if (recorded_ != nullptr || !frozen_.empty() || blocks_.size() > 1)
        return nullptr;
    const auto [picture, isNew] = pictures_.find(block, entity.look);
    if (isNew) {
        recorded_ = picture;
        toWorld_ = {};
        drawContents(block);
        recorded_ = nullptr;
        if (!picture->isComplete)
            picture->shapes = {};
    }
    return picture->isComplete ? picture : nullptr;
}

void Canvas::drawPicture(const BlockPicture& picture, const QTransform& place) {
    const bool isAligned =
        (place.m12() == 0.0 && place.m21() == 0.0) || (place.m11() == 0.0 && place.m22() == 0.0);
    if (isMeasuring() && isAligned && !picture.shapes.empty()) {
        measurePicture(picture, place);
        return;
    }
    for (const RecordedShape& recorded : picture.shapes) {
        if (!take(static_cast<std::uint64_t>(recorded.shape.path.elementCount()) + 1 +
                  kWorkPerLetter * static_cast<std::uint64_t>(recorded.shape.run.text.size())))
            return;
        const QRectF box = place.mapRect(recorded.box);
        if (!isNear(box)) {
            isOutOfRange_ = true;
            continue;
        }
        shape_.kind = recorded.shape.kind;
        shape_.colour = recorded.shape.colour;
        shape_.lineWeight = recorded.shape.lineWeight;
        if (!isSpeck(box)) {
            if (shape_.kind == Shape::Kind::text) {
                shape_.run = recorded.shape.run;
                shape_.run.place = recorded.shape.run.place * place;
            } else {
                shape_.path = place.map(recorded.shape.path);
            }
        }
        deliver(recorded.linetype, recorded.linetypeScale, box);
        shape_.run = {};
    }
}

/// All shapes at once.
void Canvas::measurePicture(const BlockPicture& picture, const QTransform& place) {
    const QRectF box = place.mapRect(picture.box());
    if (!take(picture.work() + 1))
        return;
    if (!isNear(box)) {
        isOutOfRange_ = true;
        return;
    }
    shape_.kind = Shape::Kind::stroke;
    shape_.path.clear();
    shape_.path.moveTo(box.topLeft());
    shape_.path.lineTo(box.bottomRight());
    deliver(nullptr, 1.0, box);
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
        const std::uint64_t handle = drawing_.object(entity).handle;
        if (options_.shows && !options_.shows(handle))
            continue;
        current_ = entity;
        shape_.source = handle;
        draw(entity);
    }
}

namespace {

/// The places of the records that all entities can have, found in one pass.
struct CommonPlaces {
    explicit CommonPlaces(const Records& records)
        : layer(records.size()), linetype(layer), scale(layer), invisible(layer), colour(layer),
          trueColour(layer), weight(layer) {
        for (std::size_t i = records.size(); i-- > 0;) {
            switch (records.code(i)) {
            case 6:
                linetype = i;
                break;
            case 8:
                layer = i;
                break;
            case 48:
                scale = i;
                break;
            case 60:
                invisible = i;
                break;
            case 62:
                colour = i;
                break;
            case 370:
                weight = i;
                break;
            case 420:
                trueColour = i;
                break;
            default:
                break;
            }
        }
    }

    std::size_t layer;
    std::size_t linetype;
    std::size_t scale;
    std::size_t invisible;
    std::size_t colour;
    std::size_t trueColour;
    std::size_t weight;
};

} // namespace

Look Canvas::lookOf(const Records& records) const {
    constexpr int kByLayerColour = 256;
    const CommonPlaces places(records);
    const bool isInBlock = around_.has_value();
    const std::string_view layer = places.layer < records.size() ? records.tags()[places.layer].value() : "0";
    Look look;
    look.layer = isInBlock && layer == "0" ? around_->layer : &styles_.layer(layer);
    const int number = records.integerAt(places.colour, kByLayerColour);
    const auto own = colourOf(number, records.integerAt(places.trueColour, -1));
    look.colour = own ? *own : number != 0 ? look.layer->colour : (isInBlock ? around_->colour : Colour());

    constexpr int kByBlock = -2;
    constexpr int kDefault = -3;
    const int weight = records.integerAt(places.weight, -1);
    look.lineWeight = weight >= 0          ? weight
                      : weight == kDefault ? Styles::kDefaultWeight
                      : weight == kByBlock ? (isInBlock ? around_->lineWeight : Styles::kDefaultWeight)
                                           : look.layer->lineWeight;

    const QString linetype = records.textAt(places.linetype).toUpper();
    look.linetype = linetype.isEmpty() || linetype == u"BYLAYER" ? look.layer->linetype
                    : linetype == u"BYBLOCK"                     ? (isInBlock ? around_->linetype : nullptr)
                                                                 : styles_.linetype(linetype);
    look.linetypeScale = records.realAt(places.scale, 1.0);
    look.isMarkedInvisible = records.integerAt(places.invisible) != 0;
    return look;
}

Outcome Canvas::hiddenBy(const Entity& entity) const {
    const Layer& layer = *entity.look.layer;
    if (entity.look.isMarkedInvisible)
        return "it is marked invisible";
    if (layer.isOff && entity.type != "INSERT")
        return "its layer is off";
    if (layer.isFrozen || std::find(frozen_.begin(), frozen_.end(), layer.handle) != frozen_.end())
        return "its layer is frozen";
    if (!layer.isPlotted)
        return "its layer is not plotted";
    return passesFilter(layer) ? Outcome() : kLayerFilteredOut;
}

bool Canvas::passesFilter(const Layer& layer) const {
    if (!options_.showsLayer)
        return true;
    const auto [known, isNew] = passingLayers_.try_emplace(&layer, true);
    if (isNew)
        known->second = options_.showsLayer(layer.name);
    return known->second;
}

Entity Canvas::entityOf(std::size_t index) const {
    const Records records = drawing_.records(index);
    return {index, drawing_.object(index).type, records, lookOf(records)};
}

void Canvas::draw(std::size_t index) {
    const Object& object = drawing_.object(index);
    if (object.type == "SEQEND" || !take(kWorkPerEntity))
        return;
    const Entity entity = entityOf(index);
    Outcome outcome = hiddenBy(entity);
    if (outcome.empty()) {
        const Builder builder = builderOf(object.type);
        const bool wasOutOfRange = std::exchange(isOutOfRange_, false);
        const bool lackedShapes = std::exchange(lacksShapes_, false);
        outcome = builder != nullptr ? builder(*this, entity) : "pictures do not support its type";
        if (isOutOfRange_ && outcome.empty())
            outcome = "its coordinates are out of range";
        if (lacksShapes_ && outcome.empty())
            outcome = "its linetype has shapes of a font that is not available: only its dashes are drawn";
        isOutOfRange_ = wasOutOfRange;
        lacksShapes_ = lackedShapes;
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
    if (recorded_ != nullptr)
        recorded_->isComplete = false; // what depends on the frame depends on the place
    if (!frame_)
        frame_ = options_.frame.isNull() ? measureScene(drawing_, options_).box : options_.frame;
    return *frame_;
}

} // namespace zu::picture
