#pragma once

#include "painters/page_canvas.h"
#include "plan/label_placer.h"
#include "plan/plan_elements.h"
#include "plan/plan_options.h"

#include <functional>
#include <optional>
#include <vector>

namespace zu::app {

/// A text beside what it belongs to.
struct PlanLabel {
    QString text;
    LabelRequest request;
    QColor colour;
    bool isMarker = false; ///< In a box of its colour.
    std::optional<LabelPlace> place;
};

/// The labels of a plan: asked for one by one, then placed all at the same time.
class PlanLabels {
public:
    /// More do not find a place on a page.
    static constexpr std::size_t kMost = 5000;

    /// `capitals` is the height of the letters, in page units.
    explicit PlanLabels(double capitals) : capitals_(capitals) {}

    /// `clearance` is the half width and height of what the label must not cover. The text does not matter
    /// when isFull().
    void add(const QString& text, const QPointF& anchor, const QSizeF& clearance, const QColor& colour,
             double farthest);
    void addMarker(const QString& text, const QPointF& anchor, const QColor& colour);
    [[nodiscard]] bool isEmpty() const { return labels_.empty(); }
    /// There are too many to place; further ones are only counted.
    [[nodiscard]] bool isFull() const { return asked_ > kMost; }
    /// Those asked for, also beyond kMost.
    [[nodiscard]] std::size_t count() const { return asked_; }

    /// Keeps those that find a place. Where fewer than half do, lines to them would cover the plan: only
    /// places right beside what they name count then. Returns the number of the others.
    std::size_t place(LabelPlacer& placer);
    void paint(picture::PageCanvas& canvas, const QColor& ground) const;

private:
    [[nodiscard]] bool tryPlaces(LabelPlacer& placer, std::size_t fewest);
    [[nodiscard]] QSizeF sizeOf(const PlanLabel& label) const;

    double capitals_;
    std::size_t asked_ = 0;
    std::vector<PlanLabel> labels_;
};

} // namespace zu::app
