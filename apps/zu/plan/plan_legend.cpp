#include "plan/plan_legend.h"

#include "painters/text_pieces.h"

#include <algorithm>

namespace zu::app {

namespace {

const QColor kDangling(0xff, 0xd6, 0x00);
// In heights of the letters.
constexpr double kSampleWidth = 2.4;
constexpr double kSampleGap = 0.7;
constexpr double kEntryGap = 2.0;

} // namespace

void paintMarks(picture::PageCanvas& canvas, std::span<const QPointF> places, bool joined,
                const MarkSize& size, const QColor& ink) {
    const double radius = joined ? size.joined : size.dangling;
    if (radius <= 0.0)
        return;
    picture::Circle circle{radius, ink};
    if (!joined)
        circle = {radius, kDangling, {ink, std::min(1.4, radius / 2.0), {}}};
    canvas.circles(places, circle);
}

PlanLegend::PlanLegend(std::vector<LegendEntry> entries, double capitals, const QColor& ink)
    : entries_(std::move(entries)), capitals_(capitals), ink_(ink) {}

std::vector<PlanLegend::Place> PlanLegend::places(double width) const {
    std::vector<Place> places;
    QPointF at(0.0, rowHeight() / 2.0);
    for (const LegendEntry& entry : entries_) {
        const double sample = entry.sample == LegendSample::none ? 0.0 : kSampleWidth + kSampleGap;
        const double taken =
            picture::labelRun(entry.text, capitals_, {}).width * capitals_ + sample * capitals_;
        if (at.x() > 0.0 && at.x() + taken > width)
            at = {0.0, at.y() + rowHeight()};
        places.push_back({at, taken});
        at.rx() += taken + kEntryGap * capitals_;
    }
    return places;
}

double PlanLegend::height(double width) const {
    if (entries_.empty() || capitals_ <= 0.0)
        return 0.0;
    return places(width).back().start.y() + rowHeight() / 2.0;
}

void PlanLegend::paint(picture::PageCanvas& canvas, const QRectF& area) const {
    const std::vector<Place> found = places(area.width());
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const LegendEntry& entry = entries_[i];
        QPointF at = area.topLeft() + found[i].start;
        const QPointF end = at + QPointF(kSampleWidth * capitals_, 0.0);
        if (entry.sample == LegendSample::line) {
            QPainterPath line(at);
            line.lineTo(end);
            canvas.stroke(line, {entry.colour, capitals_ * 0.3, {}});
        } else if (entry.sample != LegendSample::none) {
            const QPointF middle = (at + end) / 2.0;
            paintMarks(canvas, std::span(&middle, 1), entry.sample == LegendSample::joined, {}, ink_);
        }
        if (entry.sample != LegendSample::none)
            at = end + QPointF(kSampleGap * capitals_, 0.0);
        // One entry can be wider than the page: it is cut at the edge of the legend.
        canvas.text(picture::labelRun(entry.text, capitals_, at + QPointF(0.0, capitals_ / 2.0)), ink_);
    }
}

} // namespace zu::app
