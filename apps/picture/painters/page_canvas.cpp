#include "painters/page_canvas.h"

namespace zu::picture {

void PageCanvas::circles(std::span<const QPointF> centres, const Circle& circle) {
    for (const QPointF& centre : centres) {
        QPainterPath path;
        path.addEllipse(centre, circle.radius, circle.radius);
        fill(path, circle.fill);
        if (circle.ring.width > 0.0)
            stroke(path, circle.ring);
    }
}

} // namespace zu::picture
