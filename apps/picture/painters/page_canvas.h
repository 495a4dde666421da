#pragma once

#include "shape.h"

#include <QColor>

#include <span>
#include <vector>

namespace zu::picture {

/// A pen in page units.
struct Pen {
    QColor colour;
    double width = 1.0;
    std::vector<double> dashes; ///< Dash, gap, dash ...; empty for a continuous line.

    bool operator==(const Pen&) const = default;
};

/// A disc, with a ring around it unless the ring's width is 0.
struct Circle {
    double radius = 0.0;
    QColor fill;
    Pen ring{{}, 0.0, {}};
};

/// PageCanvas::resolution of pages that can be enlarged, such as printed ones.
inline constexpr double kPrintResolution = 0.05;

/// A page that can be painted on. Units are 1/96 inch from the upper left corner, y downwards.
class PageCanvas {
public:
    virtual ~PageCanvas() = default;
    PageCanvas() = default;
    PageCanvas(const PageCanvas&) = delete;
    PageCanvas& operator=(const PageCanvas&) = delete;

    /// The size below which the form of something cannot be seen, in units of the page.
    [[nodiscard]] virtual double resolution() const = 0;

    virtual void stroke(const QPainterPath& path, const Pen& pen) = 0;
    virtual void fill(const QPainterPath& path, const QColor& colour) = 0;
    /// Draws equal circles, one over the other.
    virtual void circles(std::span<const QPointF> centres, const Circle& circle);
    /// Draws a run whose `place` leads to the page.
    virtual void text(const TextRun& run, const QColor& colour) = 0;
    /// Restricts what follows to a rectangle; a null one lifts the restriction.
    virtual void setClip(const QRectF& rectangle) = 0;
};

} // namespace zu::picture
