#pragma once

#include "painters/page_canvas.h"

#include <QString>

#include <span>
#include <vector>

namespace zu::app {

enum class LegendSample { line, joined, dangling, none };

struct LegendEntry {
    LegendSample sample = LegendSample::line;
    QColor colour;
    QString text;
};

/// Radius of the marks of connection points, in page units.
struct MarkSize {
    double joined = 2.0; ///< 0: not drawn.
    double dangling = 4.5;
};

/// Paints marks of connection points.
void paintMarks(picture::PageCanvas& canvas, std::span<const QPointF> places, bool joined,
                const MarkSize& size, const QColor& ink);

/// Entries in rows, from left to right.
class PlanLegend {
public:
    /// `capitals` is the height of the letters, in page units; 0 for no legend.
    PlanLegend(std::vector<LegendEntry> entries, double capitals, const QColor& ink);

    [[nodiscard]] double height(double width) const;
    void paint(picture::PageCanvas& canvas, const QRectF& area) const;

private:
    struct Place {
        QPointF start; ///< Of the sample, in the middle of the letters.
        double width = 0.0;
    };

    [[nodiscard]] std::vector<Place> places(double width) const;
    [[nodiscard]] double rowHeight() const { return capitals_ * 2.2; }

    std::vector<LegendEntry> entries_;
    double capitals_;
    QColor ink_;
};

} // namespace zu::app
