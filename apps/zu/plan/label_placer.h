#pragma once

#include <QImage>
#include <QLineF>
#include <QPointF>
#include <QRectF>

#include <optional>
#include <vector>

namespace zu::app {

/// A label that wants a place.
struct LabelRequest {
    QSizeF size;
    QPointF anchor;       ///< What it belongs to.
    QSizeF clearance;     ///< Half width and height about the anchor that the label keeps free.
    double farthest = 60; ///< From there.
    double mostInk = 0.3; ///< Share of the label's area that may be drawn on already.
};

struct LabelPlace {
    QRectF box;
    QLineF leader; ///< From the anchor's edge to the label; null when the label is next to it.
};

/// Finds places for labels: within an area, off each other and each other's leaders, where little is drawn.
class LabelPlacer {
public:
    static constexpr double kNextTo = 3.0; ///< Distance of a label without a leader.

    /// `ink` is the page without labels, white on black, with pixels of `cell` page units.
    LabelPlacer(const QImage& ink, double cell, const QRectF& area);

    /// Keeps labels off a rectangle.
    void block(const QRectF& box);
    /// Nullopt when there is no room.
    [[nodiscard]] std::optional<LabelPlace> place(const LabelRequest& request);

private:
    [[nodiscard]] double inkIn(const QRectF& box) const;
    [[nodiscard]] bool isFree(const QRectF& box, const QLineF& leader) const;
    [[nodiscard]] bool isTaken(const QRectF& box) const;
    [[nodiscard]] double sumAt(int column, int row) const;

    double cell_;
    QRectF area_;
    int columns_;
    int rows_;
    std::vector<double> sums_; ///< Of the ink above and to the left.
    std::vector<bool> taken_;
    std::vector<QRectF> labels_;
    std::vector<QLineF> leaders_;
};

} // namespace zu::app
