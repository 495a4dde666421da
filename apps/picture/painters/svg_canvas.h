#pragma once

#include "painters/page_canvas.h"

#include <QByteArray>
#include <QSizeF>

namespace zu::picture {

enum class SvgText {
    text,    ///< Can be searched, copied and edited; needs the fonts.
    outlines ///< Looks the same everywhere.
};

/// Writes an SVG document. Numbers are rounded to 0.01.
class SvgCanvas : public PageCanvas {
public:
    SvgCanvas(const QSizeF& size, const QColor& ground, SvgText text);

    [[nodiscard]] double resolution() const override { return kPrintResolution; }
    void stroke(const QPainterPath& path, const Pen& pen) override;
    void fill(const QPainterPath& path, const QColor& colour) override;
    void text(const TextRun& run, const QColor& colour) override;
    void setClip(const QRectF& rectangle) override;

    /// Completes and returns the document; the canvas is empty afterwards.
    [[nodiscard]] QByteArray finish();

private:
    void startStrokes(const Pen& pen);
    void endStrokes();
    void write(double number);
    void write(const QPainterPath& path);
    void writeCells(const TextRun& run, const QColor& colour);
    void writeText(const TextRun& run, const QColor& colour, const QByteArray& letters, double width);
    void writeColour(const char* attribute, const QColor& colour);

    QByteArray out_;
    SvgText text_;
    Pen pen_;
    bool isInStrokes_ = false; ///< A path of lines with `pen_` is being written.
    bool isInClip_ = false;
    QRectF clip_;
};

} // namespace zu::picture
