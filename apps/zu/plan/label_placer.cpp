#include "plan/label_placer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace zu::app {

namespace {

constexpr std::size_t kDirections = 16;
constexpr double kStep = 12.0;     ///< Between distances that are tried.
constexpr double kInkWeight = 250; ///< As much as this distance counts a label all drawn over.
constexpr double kPadding = 2.0;

/// Whether the rectangles around two lines have a point in common. Most leaders are far from each other, and
/// exact intersections would take a quarter of the time of a large plan.
bool isNear(const QLineF& a, const QLineF& b) {
    const auto meet = [](double a1, double a2, double b1, double b2) {
        return std::max(a1, a2) >= std::min(b1, b2) && std::min(a1, a2) <= std::max(b1, b2);
    };
    return meet(a.x1(), a.x2(), b.x1(), b.x2()) && meet(a.y1(), a.y2(), b.y1(), b.y2());
}

bool crosses(const QLineF& line, const QRectF& box) {
    if (!isNear(line, {box.topLeft(), box.bottomRight()}))
        return false;
    if (box.contains(line.p1()) || box.contains(line.p2()))
        return true;
    return line.intersects({box.topLeft(), box.bottomRight()}, nullptr) == QLineF::BoundedIntersection ||
           line.intersects({box.bottomLeft(), box.topRight()}, nullptr) == QLineF::BoundedIntersection;
}

/// Unit vectors, right above first, where a reader expects a label.
const std::array<QPointF, kDirections>& directions() {
    static const auto known = [] {
        std::array<QPointF, kDirections> made;
        for (std::size_t i = 0; i < made.size(); ++i) {
            const double direction =
                -std::numbers::pi / 4.0 + 2.0 * std::numbers::pi * static_cast<double>(i) / kDirections;
            made[i] = {std::cos(direction), std::sin(direction)};
        }
        return made;
    }();
    return known;
}

/// The label in a direction from the anchor, and the line to it.
LabelPlace candidate(const LabelRequest& request, const QPointF& along, double distance) {
    // To the sides of a square: on a circle, labels between its quarters would touch what they belong to.
    const QPointF beside = along / std::max(std::abs(along.x()), std::abs(along.y()));
    const QSizeF half = request.size / 2.0;
    const QPointF centre =
        request.anchor + QPointF(beside.x() * (half.width() + request.clearance.width() + distance),
                                 beside.y() * (half.height() + request.clearance.height() + distance));
    LabelPlace place;
    place.box = QRectF(centre - QPointF(half.width(), half.height()), request.size);
    if (distance > LabelPlacer::kNextTo) {
        const QPointF end(std::clamp(request.anchor.x(), place.box.left(), place.box.right()),
                          std::clamp(request.anchor.y(), place.box.top(), place.box.bottom()));
        const QPointF start = request.anchor + QPointF(along.x() * request.clearance.width(),
                                                       along.y() * request.clearance.height());
        place.leader = {start, end};
    }
    return place;
}

} // namespace

LabelPlacer::LabelPlacer(const QImage& ink, double cell, const QRectF& area)
    : cell_(cell), area_(area), columns_(ink.width()), rows_(ink.height()),
      sums_((static_cast<std::size_t>(columns_) + 1) * (static_cast<std::size_t>(rows_) + 1)),
      taken_(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_)) {
    const std::size_t width = static_cast<std::size_t>(columns_) + 1;
    for (int row = 0; row < rows_; ++row) {
        const uchar* const pixels = ink.constScanLine(row);
        double sum = 0.0;
        for (int column = 0; column < columns_; ++column) {
            sum += pixels[column] / 255.0;
            const std::size_t at =
                (static_cast<std::size_t>(row) + 1) * width + static_cast<std::size_t>(column) + 1;
            sums_[at] = sums_[at - width] + sum;
        }
    }
}

double LabelPlacer::sumAt(int column, int row) const {
    const auto x = static_cast<std::size_t>(std::clamp(column, 0, columns_));
    const auto y = static_cast<std::size_t>(std::clamp(row, 0, rows_));
    return sums_[y * (static_cast<std::size_t>(columns_) + 1) + x];
}

double LabelPlacer::inkIn(const QRectF& box) const {
    const int left = static_cast<int>(box.left() / cell_);
    const int top = static_cast<int>(box.top() / cell_);
    const int right = static_cast<int>(box.right() / cell_) + 1;
    const int bottom = static_cast<int>(box.bottom() / cell_) + 1;
    const double sum = sumAt(right, bottom) - sumAt(left, bottom) - sumAt(right, top) + sumAt(left, top);
    return sum / (static_cast<double>(right - left) * (bottom - top));
}

bool LabelPlacer::isTaken(const QRectF& box) const {
    const int left = std::max(static_cast<int>(box.left() / cell_), 0);
    const int top = std::max(static_cast<int>(box.top() / cell_), 0);
    const int right = std::min(static_cast<int>(box.right() / cell_), columns_ - 1);
    const int bottom = std::min(static_cast<int>(box.bottom() / cell_), rows_ - 1);
    for (int row = top; row <= bottom; ++row)
        for (int column = left; column <= right; ++column)
            if (taken_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                       static_cast<std::size_t>(column)])
                return true;
    return false;
}

void LabelPlacer::block(const QRectF& box) {
    const QRectF inside = box.intersected(area_);
    const int right = std::min(static_cast<int>(inside.right() / cell_), columns_ - 1);
    const int bottom = std::min(static_cast<int>(inside.bottom() / cell_), rows_ - 1);
    for (int row = std::max(static_cast<int>(inside.top() / cell_), 0); row <= bottom; ++row)
        for (int column = std::max(static_cast<int>(inside.left() / cell_), 0); column <= right; ++column)
            taken_[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
                   static_cast<std::size_t>(column)] = true;
}

bool LabelPlacer::isFree(const QRectF& box, const QLineF& leader) const {
    if (!area_.contains(box) || isTaken(box))
        return false;
    if (std::any_of(leaders_.begin(), leaders_.end(),
                    [&](const QLineF& other) { return crosses(other, box); }))
        return false;
    if (leader.isNull())
        return true;
    return std::none_of(labels_.begin(), labels_.end(),
                        [&leader](const QRectF& other) { return crosses(leader, other); }) &&
           std::none_of(leaders_.begin(), leaders_.end(), [&leader](const QLineF& other) {
               return isNear(leader, other) &&
                      leader.intersects(other, nullptr) == QLineF::BoundedIntersection;
           });
}

std::optional<LabelPlace> LabelPlacer::place(const LabelRequest& request) {
    std::optional<LabelPlace> best;
    double least = std::numeric_limits<double>::infinity();
    for (double distance = kNextTo; distance <= request.farthest && distance < least; distance += kStep)
        for (const QPointF& direction : directions()) {
            const LabelPlace found = candidate(request, direction, distance);
            const double ink = inkIn(found.box);
            const double cost = distance + kInkWeight * ink;
            if (cost >= least || ink > request.mostInk || !isFree(found.box, found.leader))
                continue;
            least = cost;
            best = found;
        }
    if (!best)
        return best;
    block(best->box.adjusted(-kPadding, -kPadding, kPadding, kPadding));
    labels_.push_back(best->box);
    if (!best->leader.isNull())
        leaders_.push_back(best->leader);
    return best;
}

} // namespace zu::app
