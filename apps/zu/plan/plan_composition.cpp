#include "plan/plan_composition.h"

#include "failure.h"
#include "flat_set.h"
#include "model/drawing_file.h"
#include "painters/painter_canvas.h"
#include "painters/text_pieces.h"
#include "plan/plan_texts.h"
#include "readers.h"
#include "text_outline.h"

#include <dbmain.h>
#include <zucomn/frame.h>
#include <zucomn/model/elements.h>
#include <zuhost/texts.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zu::app {

namespace {

/// Page units for one pixel of the map of what is drawn, by which labels are placed.
constexpr double kInkCell = 4.0;
/// Any halo: text then takes its whole box, in which no label is placed.
constexpr double kTextHalo = 1.0;
// Widths of pictures, and heights of capitals in them.
constexpr double kSmallPicture = 360.0;
constexpr double kMiddlePicture = 800.0;
constexpr double kSmallCapitals = 6.5;
constexpr double kCapitals = 8.0;
constexpr double kLegendCapitals = 10.0;
constexpr double kReadable = 4.5;
constexpr double kHaloWidth = 4.0;
constexpr double kDanglingDistance = 100.0;
constexpr double kElementDistance = 30.0;
/// Share of a sheet's width by which lines on its edge may pass it.
constexpr double kOutside = 1e-3;
// Marks are smaller than the elements that they are on.
constexpr double kLargestJoined = 2.0;
constexpr double kLargestDangling = 4.5;
constexpr double kSmallestJoined = 0.7;
constexpr double kSmallestDangling = 1.5;

/// Layers of marks that the plan draws itself.
std::array<QString, 2> markLayers() {
    const auto text = [](const CString& name) {
        return QString::fromStdWString(std::wstring(zuhost::viewOf(name)));
    };
    return {text(ZUCONECT_LAYER), text(ZUSNAP_LAYER)};
}

std::shared_ptr<const picture::Drawing> recordsOf(picture::DatabaseCopy copy) {
    std::shared_ptr<const picture::Drawing> records = picture::readDatabase(std::move(copy));
    if (records == nullptr)
        throw Failure("the drawing needs more memory for its picture than there is");
    return records;
}

QString handleLabel(std::uint64_t handle) {
    return QString::fromStdString(handleText(AcDbHandle(handle)));
}

std::string listOf(const std::vector<std::string>& names) {
    constexpr std::size_t kMost = 8;
    std::string list;
    for (std::size_t i = 0; i < std::min(names.size(), kMost); ++i)
        list += (i > 0 ? ", " : "") + names[i];
    return names.size() > kMost ? list + " ..." : list;
}

void requireLayout(const picture::Drawing& drawing, const std::string& name) {
    if (name.empty())
        return;
    std::vector<std::string> names;
    for (const QString& layout : picture::layoutNames(drawing)) {
        if (layout.compare(QString::fromStdString(name), Qt::CaseInsensitive) == 0)
            return;
        names.push_back(layout.toStdString());
    }
    throw Failure("the drawing has no layout \"" + name + "\"" +
                  (names.empty() ? "; it has none" : "; it has " + listOf(names)));
}

QString counted(PlanText words, std::size_t count) {
    return planText(PlanText::named).arg(planText(words), QString::number(count));
}

[[noreturn]] void throwTooMuch() {
    throw Failure("the plan has more to draw than a picture holds: look for blocks that hold very many "
                  "references to others, hatches with very dense lines, or very many letters");
}

/// The place of a mark among those that differ on it: on small plans also those of small gaps, which
/// show when the picture is enlarged.
std::uint64_t markCell(const QPointF& onPage, std::size_t marks) {
    constexpr std::size_t kMany = 10'000;
    const double cells = marks > kMany ? 4.0 : 10'000.0; // in a page unit
    return static_cast<std::uint64_t>(onPage.x() * cells) << 32U |
           static_cast<std::uint64_t>(onPage.y() * cells);
}

struct CellHash {
    std::size_t operator()(std::uint64_t cell) const {
        cell = (cell ^ (cell >> 32U)) * 0x9E3779B97F4A7C15ULL;
        return static_cast<std::size_t>(cell ^ (cell >> 29U));
    }
};

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace

PlanComposition::PlanComposition(AcDbDatabase& drawing, PlanOptions options)
    : options_(std::move(options)),
      theme_(options_.theme == PlanTheme::dark ? picture::Theme::dark() : picture::Theme::light()) {
    const picture::Extents extents = read(drawing);
    inks_.emplace(theme_, elements_, options_, drawing);
    for (const AcDbObjectId id : options_.highlighted)
        highlighted_.insert(static_cast<std::uint64_t>(id.handle()));
    readOthers(drawing);
    if (!options_.layout.empty()) {
        options_.hasLegend = false;
        options_.marksJoints = false;
        options_.labels = PlanLabelKind::none;
    }
    reportScene(extents);
    world_ = worldOf(extents);
    makeLegend();
    page_ = makePage();
    sizeMarks();
    startLabels();
}

/// Another thread parses and measures the records that were written from the database, while this one reads
/// its elements.
picture::Extents PlanComposition::read(AcDbDatabase& drawing) {
    picture::DatabaseCopy copy = picture::copyDatabase(drawing);
    const auto measure = [&] {
        drawing_ = recordsOf(std::move(copy));
        requireLayout(*drawing_, options_.layout);
        return picture::measureScene(*drawing_, scene({}));
    };
    // With a filter of elements, measuring asks which of them are shown: it waits for them.
    std::future<picture::Extents> extents = std::async(
        options_.showsElement ? std::launch::deferred : std::launch::async | std::launch::deferred, measure);
    readElements(drawing);
    picture::Extents measured = extents.get();
    if (measured.report.isTooMuch)
        throwTooMuch();
    return measured;
}

/// Another thread finds the joints, while this one reads the uses of route kinds.
void PlanComposition::readElements(AcDbDatabase& drawing) {
    elements_ = PlanElements(drawing, options_.showsLayer, options_.showsElement);
    std::future<void> joints = std::async([this] { elements_.findJoints(); });
    if (options_.hasLegend && options_.legend.empty() && options_.layout.empty())
        kinds_ = kindNames(elements_.all());
    joints.get();
}

picture::SceneOptions PlanComposition::scene(const Filter& filter) const {
    picture::SceneOptions scene;
    scene.layout = QString::fromStdString(options_.layout);
    if (filter || options_.showsElement)
        scene.shows = [this, filter](std::uint64_t handle) {
            return (!filter || filter(handle)) && isInPicture(handle);
        };
    scene.showsLayer = [this, marks = markLayers()](const QString& layer) {
        const bool isMark = std::any_of(marks.begin(), marks.end(), [&layer](const QString& mark) {
            return layer.compare(mark, Qt::CaseInsensitive) == 0;
        });
        return !isMark && (!options_.showsLayer || options_.showsLayer(layer));
    };
    if (page_.scale > 0.0)
        scene.frame = page_.toPage.inverted().mapRect(page_.plan);
    else if (options_.window)
        scene.frame = *options_.window;
    return scene;
}

/// Leaves out what a filter of elements refuses; layers and visibility are the scene's business.
bool PlanComposition::isInPicture(std::uint64_t handle) const {
    if (!options_.showsElement)
        return true;
    const PlanElement* const element = elements_.find(handle);
    return element == nullptr || element->isShown;
}

void PlanComposition::readOthers(AcDbDatabase& drawing) {
    std::map<AcDbDatabase*, std::unordered_map<std::uint64_t, QColor>> byDrawing;
    for (const AcDbObjectId id : options_.others) {
        const auto given = options_.colours.find(id);
        const QColor colour = given != options_.colours.end() ? given->second : inks_->finding();
        if (AcDbDatabase* const other = id.database(); other != nullptr && other != &drawing)
            byDrawing[other].emplace(static_cast<std::uint64_t>(id.handle()), colour);
    }
    for (auto& [other, colours] : byDrawing)
        others_.push_back({recordsOf(picture::copyDatabase(*other)), std::move(colours)});
}

QRectF PlanComposition::worldOf(const picture::Extents& extents) const {
    QPolygonF corners;
    const auto add = [&corners](const QRectF& box) { corners << box.topLeft() << box.bottomRight(); };
    if (!extents.isEmpty)
        add(extents.box);
    for (const Other& other : others_) {
        picture::SceneOptions options = scene({});
        options.shows = [&other](std::uint64_t handle) { return other.colours.contains(handle); };
        if (const picture::Extents found = picture::measureScene(*other.drawing, options); !found.isEmpty)
            add(found.box);
    }
    for (const PlanMarker& marker : options_.markers)
        corners << QPointF(marker.position.x, marker.position.y);
    if (extents.isEmpty && options_.marksJoints)
        for (const PlanJoint& joint : elements_.joints())
            corners << QPointF(joint.position.x, joint.position.y);
    if (options_.window)
        return *options_.window;
    return corners.isEmpty() ? QRectF(0.0, 0.0, 1.0, 1.0) : corners.boundingRect();
}

void PlanComposition::reportScene(const picture::Extents& extents) {
    report_.drawn = extents.report.drawn;
    // What a filter hides is not missing, and marks of connection points are drawn.
    for (const picture::NotDrawn& omission : extents.report.notDrawn)
        if (omission.why != picture::kLayerFilteredOut)
            report_.notDrawn.push_back({omission.type, omission.count, omission.why});
    if (extents.isEmpty)
        report_.remarks.push_back(!options_.layout.empty() ? "the layout shows nothing"
                                  : options_.marksJoints && !elements_.joints().empty()
                                      ? "model space shows nothing but connection points"
                                      : "model space shows nothing");
    std::vector<std::string> outliers;
    for (const picture::Outlier& outlier : extents.outliers)
        outliers.push_back(outlier.type + " " + handleText(AcDbHandle(outlier.handle)));
    if (!outliers.empty() && !options_.window)
        report_.remarks.push_back("too far from everything else to be in one picture: " + listOf(outliers) +
                                  "; move or erase them, or choose the area with --window");
    if (!elements_.hidden().empty() && options_.layout.empty())
        report_.remarks.push_back(std::to_string(elements_.hidden().size()) +
                                  " elements with connection points are hidden (layer off or frozen, or "
                                  "invisible) and not marked: " +
                                  listOf(elements_.hidden()));
    for (const PlanJoint& joint : elements_.joints())
        ++(joint.joined ? report_.joined : report_.dangling);
}

void PlanComposition::makeLegend() {
    if (!options_.hasLegend)
        return;
    std::vector<LegendEntry> entries;
    for (const PlanLegendEntry& entry : options_.legend)
        entries.push_back(
            {LegendSample::line, theme_.visible(entry.colour), QString::fromStdString(entry.text)});
    if (entries.empty()) {
        for (const KindName& kind : kinds_)
            entries.push_back({LegendSample::line, inks_->kind(kind.kind), kind.name});
        const auto holds = [this](bool equipment) {
            return std::any_of(
                elements_.all().begin(), elements_.all().end(), [equipment](const PlanElement& e) {
                    return e.isShown && e.linkKind == 0 && (e.code == zucomn::kEquipment) == equipment;
                });
        };
        if (holds(true))
            entries.push_back({LegendSample::line, inks_->equipment(), planText(PlanText::equipment)});
        if (holds(false))
            entries.push_back(
                {LegendSample::line, inks_->otherElements(), planText(PlanText::otherElements)});
    }
    if (options_.marksJoints && report_.joined > 0)
        entries.push_back({LegendSample::joined, {}, counted(PlanText::joined, report_.joined)});
    if (options_.marksJoints && report_.dangling > 0)
        entries.push_back({LegendSample::dangling, {}, counted(PlanText::dangling, report_.dangling)});
    const int width = options_.paper || options_.size.width() <= 0 ? 1600 : options_.size.width();
    double capitals = kLegendCapitals;
    if (width < kSmallPicture)
        capitals = 0.0;
    else if (width < kMiddlePicture)
        capitals = kCapitals;
    legend_.emplace(std::move(entries), capitals, theme_.ink);
}

/// A layout on paper keeps its own sheet unless other paper or a part of it is asked for.
PlanPage PlanComposition::makePage() {
    if (!options_.layout.empty() && options_.paper && options_.paper->isDefault() && !options_.window) {
        if (const auto sheet = picture::sheetOf(*drawing_, QString::fromStdString(options_.layout))) {
            const double margin = kOutside * sheet->area.width();
            const QRectF area = sheet->area.adjusted(-margin, -margin, margin, margin);
            if (!area.contains(world_.topLeft()) || !area.contains(world_.bottomRight()))
                report_.remarks.push_back("parts of the layout are outside of its paper and are not shown: "
                                          "choose --paper or a --window to see them");
            return layOut(*sheet);
        }
    }
    PlanPage page =
        layOut(world_, options_, [this](double width) { return legend_ ? legend_->height(width) : 0.0; });
    if (page.isCut)
        report_.remarks.push_back("the plan does not fit on " + page.paper.toStdString() +
                                  " at this scale and is cut: choose a larger --paper, another --scale or a "
                                  "--window");
    return page;
}

/// Marks shrink with the elements that they are on.
void PlanComposition::sizeMarks() {
    std::vector<double> lengths;
    const std::vector<PlanJoint>& joints = elements_.joints();
    for (std::size_t i = 1; i < joints.size(); ++i)
        if (joints[i].element == joints[i - 1].element)
            lengths.push_back(joints[i].position.distanceTo(joints[i - 1].position) / page_.scale);
    const double typical = lengths.empty() ? 100.0 : median(std::move(lengths));
    marks_.joined = std::min(0.12 * typical, kLargestJoined);
    if (marks_.joined < kSmallestJoined)
        marks_.joined = 0.0;
    marks_.dangling = std::clamp(0.25 * typical, kSmallestDangling, kLargestDangling);
    if (page_.size.width() < kMiddlePicture)
        capitals_ = kSmallCapitals;
}

PlanReport PlanComposition::report() const {
    PlanReport report = report_;
    if (const std::size_t count = labels_.get().withoutRoom; count > 0)
        report.remarks.push_back(std::to_string(count) +
                                 " labels have no room: enlarge the picture or show a part with --window");
    return report;
}

/// Their texts are read from the database, which is not used any more once this returns.
void PlanComposition::startLabels() {
    PlanLabels labels = wantedLabels();
    const bool isWorthAThread = !labels.isEmpty() && !labels.isFull();
    labels_ = std::async(isWorthAThread ? std::launch::async | std::launch::deferred : std::launch::deferred,
                         [this, labels = std::move(labels)] { return placed(labels); });
}

PlanLabels PlanComposition::wantedLabels() {
    PlanLabels labels(capitals_);
    for (const PlanMarker& marker : options_.markers)
        if (const QPointF at = onPage(marker.position); isInSight(at))
            labels.addMarker(QString::fromStdString(marker.text), at,
                             marker.colour.isValid() ? theme_.visible(marker.colour) : inks_->finding());
    if (options_.labels != PlanLabelKind::none && page_.size.width() >= kSmallPicture) {
        if (options_.marksJoints && options_.markers.empty())
            addDanglingLabels(labels);
        if (options_.labels == PlanLabelKind::automatic)
            addEquipmentNames(labels);
        else
            addElementLabels(labels);
    }
    return labels;
}

PlanComposition::PlacedLabels PlanComposition::placed(PlanLabels labels) const {
    if (labels.isEmpty() || labels.isFull())
        return {PlanLabels(capitals_), labels.count()};
    const QSize size(static_cast<int>(page_.size.width() / kInkCell) + 1,
                     static_cast<int>(page_.size.height() / kInkCell) + 1);
    QImage ink(size, QImage::Format_Grayscale8);
    if (ink.isNull())
        return {PlanLabels(capitals_), labels.count()};
    ink.fill(0);
    QPainter painter(&ink);
    painter.scale(1.0 / kInkCell, 1.0 / kInkCell);
    {
        picture::PainterCanvas canvas(painter, picture::Letters::areas);
        picture::ShapePainter shapes(canvas, page_.toPage, paintedArea());
        picture::SceneOptions options = scene({});
        options.resolution = shapes.resolution();
        picture::produceShapes(*drawing_, options, [&shapes](const picture::Shape& shape) {
            const bool isText = shape.kind == picture::Shape::Kind::text;
            shapes.paint(shape, {Qt::white, kInkCell, isText ? kTextHalo : 0.0});
            return true;
        });
    }
    painter.end();
    LabelPlacer placer(ink, kInkCell, page_.plan);
    for (const PlanJoint& joint : elements_.joints()) {
        const double radius = joint.joined ? marks_.joined : marks_.dangling;
        const QPointF at = onPage(joint.position);
        if (isInSight(at))
            placer.block({at - QPointF(radius, radius), QSizeF(2.0 * radius, 2.0 * radius)});
    }
    const std::size_t withoutRoom = labels.place(placer);
    return {std::move(labels), withoutRoom};
}

/// Equipment gets its name when its block has no text, and its text when that is too small to read.
void PlanComposition::addEquipmentNames(PlanLabels& labels) const {
    const auto isNamed = [](const PlanElement& e) { return e.code == zucomn::kEquipment; };
    if (std::none_of(elements_.all().begin(), elements_.all().end(), isNamed))
        return;
    struct Seen {
        QPolygonF corners;
        QString text;          ///< The largest.
        double capitals = 0.0; ///< Its height on the page.
    };
    std::unordered_map<std::uint64_t, Seen> seen;
    const Filter isEquipment = [this](std::uint64_t handle) {
        const PlanElement* const element = elements_.find(handle);
        return element != nullptr && element->code == zucomn::kEquipment;
    };
    picture::produceShapes(*drawing_, scene(isEquipment), [&](const picture::Shape& shape) {
        Seen& equipment = seen[shape.source];
        const bool isText = shape.kind == picture::Shape::Kind::text;
        if (isText) {
            const QTransform& place = shape.run.place;
            const double capitals = std::hypot(place.m21(), place.m22()) / page_.scale;
            if (capitals > equipment.capitals)
                equipment = {equipment.corners, shape.run.text.trimmed(), capitals};
        }
        const QRectF box =
            isText ? picture::cornersOf(shape.run).boundingRect() : shape.path.controlPointRect();
        equipment.corners << box.topLeft() << box.bottomRight();
        equipment.corners = QPolygonF(
            {equipment.corners.boundingRect().topLeft(), equipment.corners.boundingRect().bottomRight()});
        return true;
    });
    for (const PlanElement& element : elements_.all()) {
        const auto found = seen.find(element.handle);
        if (found == seen.end() || found->second.capitals >= kReadable)
            continue;
        const QRectF box = page_.toPage.mapRect(found->second.corners.boundingRect());
        if (isInSight(box.center()))
            labels.add(found->second.text.isEmpty() ? elementName(element.id) : found->second.text,
                       box.center(), box.size() / 2.0, inks_->ofElement(element), kElementDistance);
    }
}

void PlanComposition::addDanglingLabels(PlanLabels& labels) {
    for (const PlanJoint& joint : elements_.joints()) {
        const QPointF at = onPage(joint.position);
        if (joint.joined || !isInSight(at))
            continue;
        labels.add(labels.isFull() ? QString() : handleLabel(joint.element), at,
                   {marks_.dangling, marks_.dangling}, theme_.ink, kDanglingDistance);
        if (options_.labels == PlanLabelKind::handles)
            labelled_.insert(joint.element);
    }
}

void PlanComposition::addElementLabels(PlanLabels& labels) const {
    for (const PlanElement& element : elements_.all()) {
        const QPointF at = onPage(element.position);
        if (!element.isShown || !isInSight(at) || labelled_.contains(element.handle))
            continue;
        QString text;
        if (options_.labels == PlanLabelKind::handles)
            text = QString::fromStdString(handleText(element.id));
        else
            text =
                options_.labels == PlanLabelKind::names ? elementName(element.id) : elementSize(element.id);
        if (!text.isEmpty())
            labels.add(text, at, {2.0, 2.0}, theme_.ink, kElementDistance);
    }
}

void PlanComposition::paint(picture::PageCanvas& canvas) const {
    paintDrawing(canvas);
    if (options_.marksJoints)
        paintMarks(canvas);
    labels_.get().labels.paint(canvas, theme_.ground);
    if (legend_ && page_.legend.height() > 0.0)
        legend_->paint(canvas, page_.legend);
    if (options_.hasLegend && page_.paperScale > 0.0)
        paintScale(canvas);
}

/// "A3  1:50" in the lower right corner of the paper, below the plan.
void PlanComposition::paintScale(picture::PageCanvas& canvas) const {
    const bool enlarged = page_.paperScale < 1.0;
    const double number = enlarged ? 1.0 / page_.paperScale : page_.paperScale;
    const QString text = page_.paper + (enlarged ? "  %1:1" : "  1:%1");
    const picture::TextRun run = picture::labelRun(text.arg(number, 0, 'g', 6), capitals_, {});
    const double margin = page_.plan.left();
    const QPointF corner(page_.size.width() - margin, page_.size.height() - margin / 2.0);
    canvas.text(picture::labelRun(run.text, capitals_, corner - QPointF(run.width * capitals_, 0.0)),
                theme_.ink);
}

/// Lines and letters on the edge of a plan reach into its margin, unless the plan goes on there.
QRectF PlanComposition::paintedArea() const {
    if (options_.window || page_.isCut)
        return page_.plan;
    QRectF area({}, page_.size);
    if (page_.legend.height() > 0.0)
        area.setBottom(page_.legend.top());
    return area;
}

/// Elements lie over everything else.
void PlanComposition::paintDrawing(picture::PageCanvas& canvas) const {
    picture::ShapePainter painter(canvas, page_.toPage, paintedArea());
    if (!options_.layout.empty() || elements_.all().empty()) {
        paintEntities(painter, Entities::all);
    } else {
        paintEntities(painter, Entities::others);
        paintEntities(painter, Entities::elements);
    }
    paintOthers(painter);
    paintHighlights(painter);
}

void PlanComposition::paintEntities(picture::ShapePainter& painter, Entities which) const {
    PlanElements::Finder find(elements_);
    const PlanElement* element = nullptr;
    Filter filter;
    if (which != Entities::all)
        filter = [&](std::uint64_t handle) {
            element = find(handle);
            return (element != nullptr) == (which == Entities::elements);
        };
    picture::SceneOptions options = scene(filter);
    // What is too small to see counts by its place and colour; a caller's colours are not those of shapes.
    if (options_.colours.empty())
        options.resolution = painter.resolution();
    const picture::SceneReport report =
        picture::produceShapes(*drawing_, options, [&](const picture::Shape& shape) {
            painter.paint(shape, inks_->inkOf(shape, element));
            return true;
        });
    if (report.isTooMuch)
        throwTooMuch();
}

void PlanComposition::paintOthers(picture::ShapePainter& painter) const {
    for (const Other& other : others_) {
        picture::SceneOptions options = scene({});
        options.shows = [&other](std::uint64_t handle) { return other.colours.contains(handle); };
        picture::produceShapes(*other.drawing, options, [&](const picture::Shape& shape) {
            painter.paint(shape, inks_->inkOf(other.colours.at(shape.source)));
            return true;
        });
    }
}

void PlanComposition::paintHighlights(picture::ShapePainter& painter) const {
    if (highlighted_.empty())
        return;
    const picture::SceneOptions options =
        scene([this](std::uint64_t handle) { return highlighted_.contains(handle); });
    for (const bool halo : {true, false})
        picture::produceShapes(*drawing_, options, [&](const picture::Shape& shape) {
            painter.paint(shape, halo ? picture::Ink{inks_->highlight(), 0.8, kHaloWidth}
                                      : inks_->inkOf(shape, elements_.find(shape.source)));
            return true;
        });
}

/// Marks that cover each other are painted once: joined points lie on each other, and large plans have far
/// more points than places that differ on the picture.
void PlanComposition::paintMarks(picture::PageCanvas& canvas) const {
    for (const bool joined : {true, false}) {
        if ((joined ? marks_.joined : marks_.dangling) <= 0.0)
            continue;
        picture::FlatSet<std::uint64_t, CellHash> taken;
        std::vector<QPointF> places;
        for (const PlanJoint& joint : elements_.joints())
            if (const QPointF at = onPage(joint.position);
                joint.joined == joined && isInSight(at) &&
                taken.insert(markCell(at, elements_.joints().size())))
                places.push_back(at);
        zu::app::paintMarks(canvas, places, joined, marks_, theme_.ink);
    }
}

} // namespace zu::app
