#include "shapes/linetype_texts.h"

#include "shapes/curve_path.h"

#include <cmath>

namespace zu::picture {

namespace {

QTransform placeAt(const QPointF& at, double direction, const LinetypeText& text, double scale) {
    QTransform place = QTransform::fromTranslate(at.x(), at.y());
    place.rotateRadians(direction);
    place.translate(text.along * scale, text.aside * scale);
    if (text.isUpright)
        place.rotateRadians(-direction);
    place.rotate(text.turn);
    const double height = text.height * scale;
    return place.scale(height * (text.style->width > 0.0 ? text.style->width : 1.0), height);
}

} // namespace

std::vector<QTransform> placesAlong(const QPainterPath& line, const LinetypeText& text, double scale,
                                    double period) {
    std::vector<QTransform> places;
    for (const QPolygonF& polygon : flattened(line)) {
        double next = text.at * std::abs(scale);
        double passed = 0.0;
        for (qsizetype i = 0; i + 1 < polygon.size(); ++i) {
            const QPointF step = polygon[i + 1] - polygon[i];
            const double length = std::hypot(step.x(), step.y());
            for (; next <= passed + length && length > 0.0; next += period)
                places.push_back(placeAt(polygon[i] + step * ((next - passed) / length),
                                         std::atan2(step.y(), step.x()), text, scale));
            passed += length;
        }
    }
    return places;
}

} // namespace zu::picture
