#include "plan/plan_page.h"

#include "failure.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <optional>

namespace zu::app {

namespace {

constexpr double kUnitsPerMillimetre = 96.0 / 25.4;
constexpr double kPaperMargin = 10.0; ///< Millimetres.
constexpr double kLeastExtent = 1e-9;
/// Height and width of a picture whose proportions follow the plan.
constexpr double kTallest = 3.0;
constexpr double kLeastHeight = 60.0;
constexpr double kDefaultLongSide = 1600.0;
/// A legend that takes more of a picture's height is left out.
constexpr double kMostLegend = 0.3;

struct Paper {
    const char* name;
    double shortSide; ///< Millimetres.
    double longSide;
};

/// Smallest first; B sizes are those of Japan.
constexpr std::array kPapers{Paper{"A4", 210, 297}, Paper{"B4", 257, 364},  Paper{"A3", 297, 420},
                             Paper{"B3", 364, 515}, Paper{"A2", 420, 594},  Paper{"B2", 515, 728},
                             Paper{"A1", 594, 841}, Paper{"B1", 728, 1030}, Paper{"A0", 841, 1189}};

constexpr std::array kUsualScales{1.0, 2.0, 3.0, 5.0, 10.0};

/// The smallest usual scale that is not less than the one needed: 1:30, 1:50, 1:100 and so on, also 5:1.
double usualScale(double needed) {
    if (!(needed > 0.0) || !std::isfinite(needed))
        return 1.0;
    const double decade = std::pow(10.0, std::floor(std::log10(needed)));
    for (const double step : kUsualScales)
        if (step * decade >= needed * (1.0 - 1e-9) && (step != 3.0 || decade >= 1.0))
            return step * decade;
    return 10.0 * decade;
}

const Paper& findPaper(const std::string& name) {
    const auto paper = std::find_if(kPapers.begin(), kPapers.end(), [&name](const Paper& p) {
        return QString(p.name).compare(QString::fromStdString(name), Qt::CaseInsensitive) == 0;
    });
    if (paper != kPapers.end())
        return *paper;
    std::string names;
    for (const Paper& p : kPapers)
        names += std::string(names.empty() ? "" : ", ") + p.name;
    throw WrongUsage("--paper " + name + ": unknown paper; choose one of " + names);
}

QRectF withoutZeroSides(QRectF world) {
    const double size = std::max({world.width(), world.height(), kLeastExtent});
    // A plan that is one line still has an area around it.
    const QPointF centre = world.center();
    world.setWidth(std::max(world.width(), size * 0.02));
    world.setHeight(std::max(world.height(), size * 0.02));
    world.moveCenter(centre);
    return world;
}

/// Puts the middle of the world rectangle into the middle of the plan area.
void place(PlanPage& page, const QRectF& world) {
    page.toPage = QTransform::fromTranslate(page.plan.center().x(), page.plan.center().y());
    page.toPage.scale(1.0 / page.scale, -1.0 / page.scale);
    page.toPage.translate(-world.center().x(), -world.center().y());
}

void fit(PlanPage& page, const QRectF& world) {
    page.scale = std::max(world.width() / page.plan.width(), world.height() / page.plan.height());
    place(page, world);
}

/// Plan area and legend of a page whose size is known.
void divide(PlanPage& page, double margin, const LegendHeight& legend) {
    const QRectF inner = QRectF({}, page.size).adjusted(margin, margin, -margin, -margin);
    double height = legend(inner.width());
    if (height > kMostLegend * page.size.height())
        height = 0.0;
    page.plan = inner.adjusted(0.0, 0.0, 0.0, height > 0.0 ? -height - margin / 2.0 : 0.0);
    page.legend = QRectF(inner.left(), inner.bottom() - height, inner.width(), height);
}

double marginOf(const QSizeF& size) {
    return std::clamp(0.02 * std::min(size.width(), size.height()), 4.0, 24.0);
}

/// Width and height of a picture; a legend comes on top of a height that follows the plan.
PlanPage pictureOf(const QRectF& world, const QSize& asked, const LegendHeight& legend) {
    PlanPage page;
    const double proportion = world.height() / world.width();
    double width = asked.width();
    double height = asked.height();
    if (width <= 0.0 && height <= 0.0)
        width = kDefaultLongSide / std::clamp(proportion, 1.0, kTallest);
    if (height > 0.0) {
        if (width <= 0.0)
            width = std::clamp(height / proportion, height / kTallest, height * kTallest);
        page.size = {std::round(width), std::round(height)};
        divide(page, marginOf(page.size), legend);
    } else {
        width = std::max(width, kLeastHeight);
        const double margin = marginOf({width, width * std::min(proportion, 1.0)});
        const double inner = width - 2.0 * margin;
        const double plan = std::clamp(inner * proportion, kLeastHeight, width * kTallest);
        const double below = legend(inner);
        const bool hasLegend = below > 0.0 && below < plan;
        page.size = {std::round(width),
                     std::round(plan + 2.0 * margin + (hasLegend ? below + margin / 2.0 : 0.0))};
        page.plan = {margin, margin, inner, plan};
        page.legend = {margin, page.size.height() - margin - (hasLegend ? below : 0.0), inner,
                       hasLegend ? below : 0.0};
    }
    fit(page, world);
    return page;
}

PlanPage onPaper(const Paper& paper, const QRectF& world, const PlanPaper& asked,
                 const LegendHeight& legend) {
    PlanPage page;
    page.paper = paper.name;
    const bool landscape = asked.landscape.value_or(world.width() > world.height());
    page.size =
        QSizeF(landscape ? paper.longSide : paper.shortSide, landscape ? paper.shortSide : paper.longSide) *
        kUnitsPerMillimetre;
    divide(page, kPaperMargin * kUnitsPerMillimetre, legend);
    fit(page, world);
    const double needed = page.scale * kUnitsPerMillimetre;
    page.paperScale = asked.scale > 0.0 ? asked.scale : usualScale(needed);
    page.isCut = page.paperScale < needed * (1.0 - 1e-9);
    page.scale = page.paperScale / kUnitsPerMillimetre;
    place(page, world);
    return page;
}

PlanPage onPaper(const QRectF& world, const PlanPaper& asked, const LegendHeight& legend) {
    constexpr const char* kDefault = "A3";
    if (!asked.size.empty() || asked.scale <= 0.0)
        return onPaper(findPaper(asked.size.empty() ? kDefault : asked.size), world, asked, legend);
    PlanPage page;
    for (const Paper& paper : kPapers) {
        if (paper.name[0] != 'A')
            continue;
        page = onPaper(paper, world, asked, legend);
        if (!page.isCut)
            break;
    }
    return page;
}

} // namespace

PlanPage layOut(const QRectF& world, const PlanOptions& options, const LegendHeight& legend) {
    const QRectF shown = withoutZeroSides(world);
    return options.paper ? onPaper(shown, *options.paper, legend) : pictureOf(shown, options.size, legend);
}

PlanPage layOut(const picture::Sheet& sheet) {
    PlanPage page;
    page.size = sheet.size * kUnitsPerMillimetre;
    page.plan = QRectF({}, page.size);
    page.scale = sheet.area.width() / page.size.width();
    page.paperScale = page.scale * kUnitsPerMillimetre;
    place(page, sheet.area);
    return page;
}

} // namespace zu::app
