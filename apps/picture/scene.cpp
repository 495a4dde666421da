#include "scene.h"

#include "records/drawing.h"
#include "shapes/canvas.h"
#include "text_outline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace zu::picture {

namespace {

/// The layout's object; nullopt when the drawing lacks it.
std::optional<std::size_t> findLayout(const Drawing& drawing, const QString& name) {
    for (const std::size_t entry : drawing.entries("LAYOUT"))
        if (drawing.records(entry).subclass("AcDbLayout").text(1).compare(name, Qt::CaseInsensitive) == 0)
            return entry;
    return std::nullopt;
}

/// The entities to draw; none for a layout that the drawing lacks.
std::vector<std::size_t> entitiesOf(const Drawing& drawing, const QString& layout) {
    if (layout.isEmpty())
        return drawing.modelSpace();
    const auto found = findLayout(drawing, layout);
    if (!found)
        return {};
    const Block* const block = drawing.findBlock(drawing.records(*found).subclass("AcDbLayout").handle(330));
    return block != nullptr ? drawing.paperSpace(*block) : std::vector<std::size_t>();
}

/// The box of one entity's shapes.
struct Box {
    std::size_t entity = 0;
    double left = INFINITY;
    double right = -INFINITY;
    double bottom = INFINITY;
    double top = -INFINITY;

    void add(const QRectF& box) {
        left = std::min(left, box.left());
        right = std::max(right, box.right());
        bottom = std::min(bottom, box.top());
        top = std::max(top, box.bottom());
    }
    [[nodiscard]] QRectF rect() const { return {QPointF(left, bottom), QPointF(right, top)}; }
};

QRectF boxOf(const Shape& shape) {
    const QRectF box =
        shape.kind == Shape::Kind::text ? cornersOf(shape.run).boundingRect() : shape.path.controlPointRect();
    if (shape.clip.isNull())
        return box;
    const QPointF low(std::clamp(box.left(), shape.clip.left(), shape.clip.right()),
                      std::clamp(box.top(), shape.clip.top(), shape.clip.bottom()));
    const QPointF high(std::clamp(box.right(), shape.clip.left(), shape.clip.right()),
                       std::clamp(box.bottom(), shape.clip.top(), shape.clip.bottom()));
    return {low, high};
}

struct Span {
    double low = 0.0;
    double high = 0.0;

    [[nodiscard]] double size() const { return std::abs(high - low); }
    [[nodiscard]] bool holds(double from, double to, double reach) const {
        return from >= low - reach && to <= high + reach;
    }
};

/// One axis of the drawing's bulk: the lowest and highest 2 % of the edges (at least one each) are set aside.
Span bulkOf(std::vector<double> lows, std::vector<double> highs) {
    constexpr std::size_t kShare = 50;
    const auto aside = static_cast<std::ptrdiff_t>(std::max<std::size_t>(1, lows.size() / kShare));
    const auto low = lows.begin() + aside;
    const auto high = highs.end() - 1 - aside;
    std::nth_element(lows.begin(), low, lows.end());
    std::nth_element(highs.begin(), high, highs.end());
    return {std::min(*low, *high), std::max(*low, *high)};
}

/// Returns which boxes reach farther from the bulk than ten times its size. With fewer than five entities, or
/// where all lie in one point, none is.
std::vector<bool> findStrays(const std::vector<Box>& boxes) {
    constexpr std::size_t kFewest = 5;
    std::vector<bool> strays(boxes.size(), false);
    if (boxes.size() < kFewest)
        return strays;
    std::vector<double> lefts;
    std::vector<double> rights;
    std::vector<double> bottoms;
    std::vector<double> tops;
    for (std::vector<double>* const edges : {&lefts, &rights, &bottoms, &tops})
        edges->reserve(boxes.size());
    for (const Box& box : boxes) {
        lefts.push_back(box.left);
        rights.push_back(box.right);
        bottoms.push_back(box.bottom);
        tops.push_back(box.top);
    }
    constexpr double kReach = 10.0;
    const Span across = bulkOf(std::move(lefts), std::move(rights));
    const Span up = bulkOf(std::move(bottoms), std::move(tops));
    const double reach = kReach * std::max(across.size(), up.size());
    for (std::size_t i = 0; reach > 0.0 && i < boxes.size(); ++i)
        strays[i] = !across.holds(boxes[i].left, boxes[i].right, reach) ||
                    !up.holds(boxes[i].bottom, boxes[i].top, reach);
    return strays;
}

} // namespace

SceneReport produceShapes(const Drawing& drawing, const SceneOptions& options, const ShapeSink& sink) {
    Canvas canvas(drawing, options, sink);
    canvas.topLevel(entitiesOf(drawing, options.layout));
    return canvas.report();
}

Extents measureScene(const Drawing& drawing, const SceneOptions& options) {
    const std::vector<std::size_t> entities = entitiesOf(drawing, options.layout);
    std::vector<Box> boxes;
    boxes.reserve(entities.size());
    const Canvas* source = nullptr;
    const ShapeSink sink = [&](const Shape& shape) {
        if (boxes.empty() || boxes.back().entity != source->current()) {
            boxes.emplace_back();
            boxes.back().entity = source->current();
        }
        boxes.back().add(boxOf(shape));
        return true;
    };
    Canvas canvas(drawing, options, sink, Canvas::Purpose::measure);
    source = &canvas;
    canvas.topLevel(entities);
    Extents extents;
    extents.report = canvas.report();
    const std::vector<bool> strays = findStrays(boxes);
    Box all;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (!strays[i]) {
            all.add(boxes[i].rect());
            continue;
        }
        const Object& object = drawing.object(boxes[i].entity);
        extents.outliers.push_back({std::string(object.type), object.handle, boxes[i].rect()});
    }
    extents.isEmpty = !(all.left <= all.right);
    if (!extents.isEmpty)
        extents.box = all.rect();
    return extents;
}

std::vector<QString> layoutNames(const Drawing& drawing) {
    std::vector<std::pair<int, QString>> found;
    for (const std::size_t entry : drawing.entries("LAYOUT")) {
        const Records own = drawing.records(entry).subclass("AcDbLayout");
        if (const QString name = own.text(1); name.compare(u"Model", Qt::CaseInsensitive) != 0)
            found.emplace_back(own.integer(71), name);
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<QString> names;
    names.reserve(found.size());
    for (auto& [order, name] : found)
        names.push_back(std::move(name));
    return names;
}

std::optional<Sheet> sheetOf(const Drawing& drawing, const QString& layout) {
    constexpr double kInch = 25.4;
    constexpr std::array kMillimetres{kInch, 1.0}; // of the units of the page setup; pixels have none
    constexpr double kSmallest = 10.0;
    constexpr double kLargest = 10'000.0;
    // Left, bottom, right, top margin: those at the left and at the bottom after so many quarter turns.
    constexpr std::array kMargins{40, 41, 42, 43};
    const auto found = findLayout(drawing, layout);
    if (!found)
        return std::nullopt;
    const Records setup = drawing.records(*found).subclass("AcDbPlotSettings");
    const auto unit = static_cast<std::size_t>(setup.integer(72));
    const double scale = setup.real(142, 1.0) / setup.real(143, 1.0);
    const auto turns = static_cast<std::size_t>(setup.integer(73)) % kMargins.size();
    QSizeF size(setup.real(44), setup.real(45));
    if (turns % 2 != 0)
        size.transpose();
    const auto isSide = [](double side) { return side >= kSmallest && side <= kLargest; };
    if (unit >= kMillimetres.size() || !isSide(size.width()) || !isSide(size.height()) || !(scale > 0.0) ||
        !std::isfinite(scale))
        return std::nullopt;
    const double units = 1.0 / (kMillimetres[unit] * scale); // for a millimetre
    const double left = setup.real(kMargins[turns]) + setup.real(46);
    const double bottom = setup.real(kMargins[(turns + 1) % kMargins.size()]) + setup.real(47);
    return Sheet{size, QRectF(QPointF(-left, -bottom) * units, size * units)};
}

} // namespace zu::picture
