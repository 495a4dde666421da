#pragma once

#include "plan/plan_options.h"
#include "scene.h"

#include <QTransform>

#include <functional>

namespace zu::app {

/// Where the plan lies on its page. Units are 1/96 inch, y downwards.
struct PlanPage {
    QSizeF size;
    QRectF plan;             ///< The area that shows the drawing.
    QRectF legend;           ///< Below it; empty when there is no room.
    QTransform toPage;       ///< From world coordinates.
    double scale = 0.0;      ///< Drawing units for one page unit.
    QString paper;           ///< "A3"; empty for pictures without paper.
    double paperScale = 0.0; ///< Millimetres for one on paper.
    bool isCut = false;      ///< The plan is larger than the paper at the scale that was asked for.
};

/// Returns the height that a legend takes in a width.
using LegendHeight = std::function<double(double width)>;

/// Lays out a page for a part of the world. A picture without a given height or width has the proportions of
/// that part. Throws WrongUsage for an unknown paper.
[[nodiscard]] PlanPage layOut(const QRectF& world, const PlanOptions& options, const LegendHeight& legend);

/// Lays out the page of a layout as its sheet of paper, at full size.
[[nodiscard]] PlanPage layOut(const picture::Sheet& sheet);

} // namespace zu::app
