#include "plan/plan_composition.h"

#include "flat_set.h"
#include "painters/text_pieces.h"
#include "text_outline.h"

namespace zu::app {

namespace {

constexpr double kHaloWidth = 4.0;

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

} // namespace

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
