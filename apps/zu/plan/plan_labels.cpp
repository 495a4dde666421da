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
    if (++asked_ > kMost)
        return;
    const double width = picture::labelRun(text, 1.0, {}).width;
    PlanLabel& label = labels_.emplace_back();
    label.text = text;
    label.colour = colour;
    label.request = {QSizeF(width, kAscent + kDescent) * capitals_, anchor, clearance, farthest};
}

void PlanLabels::addMarker(const QString& text, const QPointF& anchor, const QColor& colour) {
    add(text, anchor, {5.0, 5.0}, colour, kMarkerDistance);
    if (asked_ > kMost)
        return;
    PlanLabel& label = labels_.back();
    label.isMarker = true;
    label.request.mostInk = 1.0;
    label.request.size += QSizeF(2.0 * kMarkerPadding, kMarkerPadding) * capitals_;
    label.request.size.setWidth(std::max(label.request.size.width(), label.request.size.height()));
}

std::size_t PlanLabels::place(LabelPlacer& placer) {
    const std::size_t all = labels_.size();
    std::erase_if(labels_, [&](PlanLabel& label) {
        const auto place = placer.place(label.request);
        if (place)
            label.place = *place;
        return !place;
    });
    return all - labels_.size();
}

void PlanLabels::paint(picture::PageCanvas& canvas, const QColor& ground) const {
    for (const PlanLabel& label : labels_) {
        const QLineF& leader = label.place.leader;
        if (!leader.isNull()) {
            QPainterPath line(leader.p1());
            line.lineTo(leader.p2());
            canvas.stroke(line, {label.colour, kLeaderWidth, {}});
        }
        const QRectF& box = label.place.box;
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
