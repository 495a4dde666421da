#pragma once

#include "painters/page_canvas.h"

#include <QPainter>

#include <future>

namespace zu::picture {

enum class Letters {
    areas, ///< Filled outlines: exact at any size and turn. For images.
    text   ///< Text in a font, which can be searched and copied.
};

/// Paints with a QPainter whose units are those of the page.
class PainterCanvas : public PageCanvas {
public:
    /// The painter has to outlive the canvas.
    PainterCanvas(QPainter& painter, Letters letters);
    ~PainterCanvas() override;

    [[nodiscard]] double resolution() const override {
        return letters_ == Letters::areas ? 1.0 : kPrintResolution;
    }
    void stroke(const QPainterPath& path, const Pen& pen) override;
    void fill(const QPainterPath& path, const QColor& colour) override;
    void circles(std::span<const QPointF> centres, const Circle& circle) override;
    void text(const TextRun& run, const QColor& colour) override;
    void setClip(const QRectF& rectangle) override;

private:
    void stamp(std::span<const QPointF> centres, const Circle& circle);
    void addLines(const QPainterPath& path);
    void flush();
    void flushLines();
    void finish();
    void wait();

    QPainter& painter_;
    Letters letters_;
    Pen pen_; ///< Of what waits to be painted together: changing the pen takes longer than painting a line.
    QPainterPath path_;
    QList<QLineF>
        lines_; ///< Thin ones, which are painted one by one, much faster than the outline of a path.
    std::future<void> painting_; ///< Of lines, by another thread. The painter is not used meanwhile.
};

} // namespace zu::picture
