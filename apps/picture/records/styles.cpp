#include "records/styles.h"

#include "records/fonts.h"

#include <algorithm>
#include <cmath>

namespace zu::picture {

namespace {

constexpr int kByLayerColour = 256;
constexpr int kLastColour = 255;
constexpr std::size_t kMostDashes = 64;

int layerWeight(int weight) {
    return weight >= 0 ? weight : Styles::kDefaultWeight;
}

Layer readLayer(const Records& records, int missingColour) {
    constexpr int kFrozen = 1;
    Layer layer;
    layer.name = records.text(2);
    const int number = records.integer(62, missingColour);
    const int positive = number == std::numeric_limits<int>::min() ? 0 : std::abs(number);
    layer.colour = {positive > 0 && positive <= kLastColour ? positive : missingColour, std::nullopt};
    if (records.has(420))
        layer.colour.rgb = static_cast<std::uint32_t>(records.integer(420)) & 0xFFFFFFU;
    layer.isOff = number < 0;
    layer.isFrozen = (records.integer(70) & kFrozen) != 0;
    layer.isPlotted = records.integer(290, 1) != 0;
    layer.lineWeight = layerWeight(records.integer(370, -1));
    layer.handle = records.handle(5);
    return layer;
}

/// The family in the extended data of a style, which TrueType fonts have.
void readFamily(const Records& records, TextStyle& style) {
    constexpr int kItalic = 0x1000000;
    constexpr int kBold = 0x2000000;
    const std::size_t name = records.position(1000);
    if (name == records.size())
        return;
    style.family = installedFamily(records.textAt(name));
    const int flags = records.integer(1071);
    style.bold = (flags & kBold) != 0;
    style.italic = (flags & kItalic) != 0;
}

/// Fonts whose half-width letters are half as wide as full-width ones: stroke fonts with a big font and those
/// named so.
bool isGridFont(const TextStyle& style) {
    if (!style.bigFont.isEmpty())
        return true;
    const QString name = style.font.normalized(QString::NormalizationForm_KC).toLower();
    const bool isJapanese = name.contains(u"gothic") || name.contains(u"mincho") ||
                            name.contains(QStringLiteral("ゴシック")) ||
                            name.contains(QStringLiteral("明朝"));
    return isJapanese && !name.startsWith(u"ms p") && !name.startsWith(u"msp") &&
           !name.startsWith(u"@ms p") && !name.contains(u"century");
}

TextStyle readTextStyle(const Records& records) {
    TextStyle style;
    style.font = records.text(3);
    style.bigFont = records.text(4);
    readFamily(records, style);
    if (style.family.isEmpty())
        style.family = installedFamily(style.font);
    style.onGrid = isGridFont(style);
    style.width = records.real(41, 1.0);
    style.oblique = records.real(50);
    style.height = records.real(40);
    style.generation = records.integer(71);
    constexpr int kVertical = 4;
    style.isVertical = (records.integer(70) & kVertical) != 0;
    style.turnsLetters = style.font.startsWith(u'@');
    return style;
}

constexpr int kTextInLinetype = 2;
constexpr int kShapeInLinetype = 4;

LinetypeText linetypeText(const Records& figure, double at, const TextStyle& style) {
    constexpr int kUpright = 1;
    constexpr qsizetype kLongest = 100;
    LinetypeText text;
    text.at = at;
    text.text = figure.text(9).left(kLongest);
    text.style = &style;
    text.height = figure.real(46, 1.0) * (style.height > 0.0 ? style.height : 1.0);
    text.turn = std::fmod(figure.real(50), 360.0);
    text.isUpright = (figure.integer(74) & kUpright) != 0;
    text.along = figure.real(44);
    text.aside = figure.real(45);
    return text;
}

} // namespace

std::optional<Colour> colourOf(const Records& records) {
    return colourOf(records.integer(62, kByLayerColour), records.integer(420, -1));
}

std::optional<Colour> colourOf(int number, int rgb) {
    const bool isNumber = number > 0 && number <= kLastColour;
    if (rgb >= 0)
        return Colour{isNumber ? number : Colour::kForeground, static_cast<std::uint32_t>(rgb) & 0xFFFFFFU};
    return isNumber ? std::optional(Colour{number, std::nullopt}) : std::nullopt;
}

Styles::Styles(const Drawing& drawing) : drawing_(drawing) {
    linetypeScale_ = drawing.variable("$LTSCALE").real(40, 1.0);
    if (!(linetypeScale_ > 0.0))
        linetypeScale_ = 1.0;
    readTextStyles(drawing);
    readLinetypes(drawing);
    readLayers(drawing);
}

void Styles::readLinetypes(const Drawing& drawing) {
    for (const std::size_t entry : drawing.entries("LTYPE")) {
        const Records records = drawing.records(entry);
        linetypes_.try_emplace(records.text(2).toUpper(), readLinetype(records));
    }
}

/// Each dash, gap or dot (49) can be followed by a text or shape, which lies at its end.
Linetype Styles::readLinetype(const Records& records) const {
    Linetype type;
    for (std::size_t at = records.position(49); at < records.size() && type.dashes.size() <= kMostDashes;) {
        const std::size_t next = records.position(49, at + 1);
        type.dashes.push_back(records.realAt(at));
        type.length += std::abs(type.dashes.back());
        const Records figure = records.part(at, next);
        const int kind = figure.integer(74);
        type.hasShapes = type.hasShapes || (kind & kShapeInLinetype) != 0;
        if ((kind & kTextInLinetype) != 0)
            type.texts.push_back(linetypeText(figure, type.length, textStyle(figure.handle(340))));
        at = next;
    }
    if (!(type.length > 0.0) || !std::isfinite(type.length) || type.dashes.size() > kMostDashes)
        return {};
    if (std::none_of(type.dashes.begin(), type.dashes.end(), [](double dash) { return dash < 0.0; }))
        type.dashes.clear();
    return type;
}

void Styles::readLayers(const Drawing& drawing) {
    for (const std::size_t entry : drawing.entries("LAYER")) {
        const Records records = drawing.records(entry);
        Layer layer = readLayer(records, drawing.missingLayerColour());
        layer.linetype = linetype(records.text(6));
        const QString key = layer.name.toUpper();
        layers_.try_emplace(key, std::move(layer));
    }
}

void Styles::readTextStyles(const Drawing& drawing) {
    for (const std::size_t entry : drawing.entries("STYLE")) {
        const Records records = drawing.records(entry);
        const auto [style, isNew] =
            textStyles_.try_emplace(records.text(2).toUpper(), readTextStyle(records));
        stylesByHandle_.try_emplace(drawing.object(entry).handle, &style->second);
    }
}

const Layer& Styles::layer(std::string_view name) const {
    if (last_.second != nullptr && last_.first == name)
        return *last_.second;
    const Layer& found = findLayer(name);
    last_ = {name, &found};
    return found;
}

const Layer& Styles::findLayer(std::string_view name) const {
    const auto [known, isNew] = known_.try_emplace(name, nullptr);
    if (!isNew)
        return *known->second;
    const QString decoded = drawing_.decode(name);
    const auto found = layers_.find(decoded.toUpper());
    if (found != layers_.end())
        return *(known->second = &found->second);
    Layer missing;
    missing.name = decoded;
    missing.colour.number = drawing_.missingLayerColour();
    return *(known->second = &missing_.try_emplace(decoded, std::move(missing)).first->second);
}

const Linetype* Styles::linetype(const QString& name) const {
    const auto found = linetypes_.find(name.toUpper());
    if (found == linetypes_.end())
        return nullptr;
    const Linetype& type = found->second;
    return type.dashes.empty() && type.texts.empty() && !type.hasShapes ? nullptr : &type;
}

const TextStyle& Styles::textStyle(const QString& name) const {
    const auto found = textStyles_.find(name.isEmpty() ? QStringLiteral("STANDARD") : name.toUpper());
    return found == textStyles_.end() ? defaultStyle_ : found->second;
}

const TextStyle& Styles::textStyle(std::uint64_t handle) const {
    const auto found = stylesByHandle_.find(handle);
    return found == stylesByHandle_.end() ? textStyle(QString()) : *found->second;
}

} // namespace zu::picture
