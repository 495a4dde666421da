#include "plan/plan_composition.h"

#include "failure.h"
#include "model/drawing_file.h"
#include "plan/plan_texts.h"
#include "readers.h"

#include <dbmain.h>
#include <zucomn/frame.h>
#include <zucomn/model/elements.h>
#include <zuhost/texts.h>

#include <algorithm>
#include <array>
#include <map>

namespace zu::app {

namespace {

// Heights of capitals.
constexpr double kSmallCapitals = 6.5;
constexpr double kCapitals = 8.0;
constexpr double kLegendCapitals = 10.0;
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

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace

void PlanComposition::throwTooMuch() {
    throw Failure("the plan has more to draw than a picture holds: look for blocks that hold very many "
                  "references to others, hatches with very dense lines, or very many letters");
}

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

} // namespace zu::app
