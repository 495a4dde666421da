#include "painters/dashes.h"

#include <QPolygonF>

#include <cmath>

namespace zu::picture {

namespace {

/// Walks along a line and appends the parts that dashes cover.
class Dasher {
public:
    Dasher(std::span<const double> lengths, QPainterPath& result)
        : lengths_(lengths), left_(lengths[0]), result_(result) {}

    void follow(QPointF from, QPointF to) {
        const QPointF step = to - from;
        const double length = std::hypot(step.x(), step.y());
        for (double passed = 0.0; passed < length;) {
            const double end = std::min(passed + left_, length);
            if (isDash())
                cover(from + step * (passed / length), from + step * (end / length));
            left_ -= end - passed;
            if (end < length)
                next();
            passed = end;
        }
    }

private:
    [[nodiscard]] bool isDash() const { return at_ % 2 == 0; }
    void next() {
        at_ = (at_ + 1) % lengths_.size();
        left_ = lengths_[at_];
        isOpen_ = false;
    }
    void cover(QPointF from, QPointF to) {
        if (!isOpen_)
            result_.moveTo(from);
        result_.lineTo(to);
        isOpen_ = true;
    }

    std::span<const double> lengths_;
    std::size_t at_ = 0;
    double left_;
    bool isOpen_ = false; ///< The dash began before the present line.
    QPainterPath& result_;
};

} // namespace

QPainterPath dashed(const QPainterPath& path, std::span<const double> lengths) {
    QPainterPath result;
    for (const QPolygonF& line : path.toSubpathPolygons()) {
        Dasher dasher(lengths, result);
        for (qsizetype i = 0; i + 1 < line.size(); ++i)
            dasher.follow(line[i], line[i + 1]);
    }
    return result;
}

} // namespace zu::picture
