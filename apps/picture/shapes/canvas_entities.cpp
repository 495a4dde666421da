#include "shapes/canvas.h"

#include "shapes/canvas_limits.h"

#include <algorithm>
#include <utility>

namespace zu::picture {

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

} // namespace zu::picture
