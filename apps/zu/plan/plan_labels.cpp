#include "plan/plan_labels.h"

#include "painters/text_pieces.h"

#include <algorithm>

namespace zu::app {

namespace {

// In heights of the letters.
constexpr double kAscent = 1.15;
constexpr double kDescent = 0.35;
constexpr double kMarkerPadding = 0.5;
constexpr double kMarkerDistance = 160.0;
constexpr double kLeaderWidth = 0.7;

} // namespace

void PlanLabels::add(const QString& text, const QPointF& anchor, const QSizeF& clearance,
                     const QColor& colour, double farthest) {
    ++asked_;
    if (isFull())
        return;
    PlanLabel& label = labels_.emplace_back();
    label.text = text;
    label.colour = colour;
    label.request = {{}, anchor, clearance, farthest};
}

void PlanLabels::addMarker(const QString& text, const QPointF& anchor, const QColor& colour) {
    add(text, anchor, {5.0, 5.0}, colour, kMarkerDistance);
    if (isFull())
        return;
    PlanLabel& label = labels_.back();
    label.isMarker = true;
    label.request.mostInk = 1.0;
}

QSizeF PlanLabels::sizeOf(const PlanLabel& label) const {
    QSizeF size = QSizeF(picture::labelRun(label.text, 1.0, {}).width, kAscent + kDescent) * capitals_;
    if (!label.isMarker)
        return size;
    size += QSizeF(2.0 * kMarkerPadding, kMarkerPadding) * capitals_;
    return {std::max(size.width(), size.height()), size.height()};
}

std::size_t PlanLabels::place(LabelPlacer& placer) {
    const LabelPlacer empty = placer;
    if (!tryPlaces(placer, (labels_.size() + 1) / 2)) {
        placer = empty;
        for (PlanLabel& label : labels_)
            if (!label.isMarker)
                label.request.farthest = LabelPlacer::kNextTo;
        (void)tryPlaces(placer, 0);
    }
    return std::erase_if(labels_, [](const PlanLabel& label) { return !label.place; });
}

/// Returns false as soon as fewer labels than `fewest` can get a place.
bool PlanLabels::tryPlaces(LabelPlacer& placer, std::size_t fewest) {
    std::size_t possible = labels_.size();
    for (PlanLabel& label : labels_) {
        label.request.size = sizeOf(label);
        label.place = placer.place(label.request);
        if (!label.place && --possible < fewest)
            return false;
    }
    return true;
}

void PlanLabels::paint(picture::PageCanvas& canvas, const QColor& ground) const {
    for (const PlanLabel& label : labels_) {
        const QLineF& leader = label.place->leader;
        if (!leader.isNull()) {
            QPainterPath line(leader.p1());
            line.lineTo(leader.p2());
            canvas.stroke(line, {label.colour, kLeaderWidth, {}});
        }
        const QRectF& box = label.place->box;
        if (label.isMarker) {
            QPainterPath around;
            around.addRoundedRect(box, box.height() / 2.0, box.height() / 2.0);
            canvas.fill(around, label.colour);
        }
        const picture::TextRun run = picture::labelRun(label.text, capitals_, {});
        const QPointF baseline(box.center().x() - run.width * capitals_ / 2.0,
                               box.center().y() + (kAscent - kDescent) / 2.0 * capitals_);
        canvas.text(picture::labelRun(label.text, capitals_, baseline),
                    label.isMarker ? ground : label.colour);
    }
}

} // namespace zu::app
