#include "shapes/canvas.h"

#include "shapes/canvas_limits.h"

#include <algorithm>

namespace zu::picture {

namespace {

constexpr std::size_t kDeepestNesting = 32;

} // namespace

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

} // namespace zu::picture
