#pragma once

#include "painters/page_canvas.h"

namespace zu::picture {

/// How a shape is painted.
struct Ink {
    QColor colour;
    double thinnest = 0.8; ///< Least width of a line, in page units.
    double halo = 0.0; ///< Width of a line around the shape in `haloColour`, painted instead of the shape.
};

/// Returns the width of a line weight, hundredths of a millimetre, in page units.
[[nodiscard]] double widthOf(int lineWeight);

/// Paints shapes of a drawing on a canvas: what cannot be seen is left out, text too small to be read becomes
/// a thin line in its place, dashes too short to be seen a continuous line.
class ShapePainter {
public:
    /// Only what lies within `area` of the page is painted. The canvas has to outlive the painter.
    ShapePainter(PageCanvas& canvas, const QTransform& toPage, const QRectF& area);
    ~ShapePainter();
    ShapePainter(const ShapePainter&) = delete;
    ShapePainter& operator=(const ShapePainter&) = delete;

    void paint(const Shape& shape, const Ink& ink);
    /// World size of what is too small to see: SceneOptions::resolution.
    [[nodiscard]] double resolution() const { return canvas_.resolution() / scale_; }

private:
    [[nodiscard]] bool isInSight(const QRectF& box) const;
    void setClip(const QRectF& world);
    void paintStroke(const Shape& shape, const Ink& ink);
    void paintFill(const Shape& shape, const Ink& ink);
    void paintText(const Shape& shape, const Ink& ink);
    void paintDot(const Shape& shape, const Ink& ink);

    PageCanvas& canvas_;
    QTransform toPage_;
    QRectF area_;   ///< On the page.
    QRectF bounds_; ///< Beyond which paths are cut.
    QRectF clip_;   ///< The present one, in world coordinates.
    double scale_;  ///< Page units for one world unit.
};

} // namespace zu::picture
