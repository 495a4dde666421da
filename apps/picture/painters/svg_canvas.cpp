#include "painters/svg_canvas.h"

#include "painters/text_pieces.h"
#include "text_outline.h"

#include <QFontInfo>
#include <QFontMetricsF>

#include <array>
#include <charconv>
#include <cmath>

namespace zu::picture {

namespace {

/// Height of capitals in which fonts are measured.
constexpr double kMeasured = 100.0;

/// At most `decimals` of them, without trailing zeros.
void append(QByteArray& out, double number, int decimals) {
    std::array<char, 400> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                            std::chars_format::fixed, decimals);
    std::string_view text(digits.data(), static_cast<std::size_t>(end - digits.data()));
    text.remove_suffix(text.size() - 1 - text.find_last_not_of('0'));
    if (text.ends_with('.'))
        text.remove_suffix(1);
    out.append(text == "-0" ? "0" : text.data(), text == "-0" ? 1 : static_cast<qsizetype>(text.size()));
}

/// Control characters are not allowed in XML, not even escaped.
QByteArray escaped(const QString& text) {
    QString allowed = text;
    for (QChar& letter : allowed)
        if (letter < QChar(' '))
            letter = QChar(' ');
    return allowed.toHtmlEscaped().toUtf8();
}

} // namespace

SvgCanvas::SvgCanvas(const QSizeF& size, const QColor& ground, SvgText text) : text_(text) {
    out_ = R"(<svg xmlns="http://www.w3.org/2000/svg" width=")";
    write(size.width());
    out_ += "\" height=\"";
    write(size.height());
    out_ += "\" viewBox=\"0 0 ";
    write(size.width());
    out_ += ' ';
    write(size.height());
    out_ += "\">\n<rect width=\"100%\" height=\"100%\"";
    writeColour("fill", ground);
    out_ += "/>\n";
}

void SvgCanvas::write(double number) {
    append(out_, number, 2);
}

void SvgCanvas::writeColour(const char* attribute, const QColor& colour) {
    out_ += QByteArray(" ") + attribute + "=\"" + colour.name().toLatin1() + '"';
    if (colour.alpha() == 255)
        return;
    out_ += QByteArray(" ") + attribute + "-opacity=\"";
    write(colour.alphaF());
    out_ += '"';
}

void SvgCanvas::write(const QPainterPath& path) {
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element& element = path.elementAt(i);
        if (element.type == QPainterPath::MoveToElement)
            out_ += 'M';
        else if (element.type == QPainterPath::LineToElement)
            out_ += 'L';
        else
            out_ += element.type == QPainterPath::CurveToElement ? 'C' : ' ';
        write(element.x);
        out_ += ' ';
        write(element.y);
    }
}

void SvgCanvas::startStrokes(const Pen& pen) {
    pen_ = pen;
    isInStrokes_ = true;
    out_ += "<path fill=\"none\"";
    writeColour("stroke", pen.colour);
    out_ += " stroke-width=\"";
    write(pen.width);
    out_ +=
        pen.dashes.empty() ? R"(" stroke-linecap="round" stroke-linejoin="round)" : "\" stroke-dasharray=\"";
    for (const double length : pen.dashes) {
        write(length);
        out_ += ' ';
    }
    out_ += "\" d=\"";
}

void SvgCanvas::endStrokes() {
    if (isInStrokes_)
        out_ += "\"/>\n";
    isInStrokes_ = false;
}

void SvgCanvas::stroke(const QPainterPath& path, const Pen& pen) {
    if (!isInStrokes_ || pen != pen_) {
        endStrokes();
        startStrokes(pen);
    }
    write(path);
}

void SvgCanvas::fill(const QPainterPath& path, const QColor& colour) {
    endStrokes();
    out_ += "<path";
    writeColour("fill", colour);
    if (path.fillRule() == Qt::OddEvenFill)
        out_ += " fill-rule=\"evenodd\"";
    out_ += " d=\"";
    write(path);
    out_ += "\"/>\n";
}

void SvgCanvas::text(const TextRun& run, const QColor& colour) {
    if (text_ == SvgText::outlines) {
        fill(outlineOf(run), colour);
        return;
    }
    endStrokes();
    if (run.onGrid)
        writeCells(run, colour);
    else
        writeText(run, colour, escaped(run.text), run.width);
}

/// Letters in the middle of their cells. Those wider than their cell are texts of their own, made narrower.
void SvgCanvas::writeCells(const TextRun& run, const QColor& colour) {
    const QFontMetricsF metrics(fontOf(run, kMeasured));
    QByteArray letters;
    for (const TextPiece& piece : piecesOf(run)) {
        const double advance = metrics.horizontalAdvance(piece.text) / kMeasured;
        if (advance > piece.width * 1.01) {
            TextRun narrow = run;
            narrow.place = QTransform(piece.width / advance, 0.0, 0.0, 1.0, piece.start, 0.0) * run.place;
            writeText(narrow, colour, escaped(piece.text), 0.0);
            continue;
        }
        letters += "<tspan x=\"";
        append(letters, (piece.start + (piece.width - advance) / 2.0) * kMeasured, 2);
        letters += "\">" + escaped(piece.text) + "</tspan>";
    }
    writeText(run, colour, letters, 0.0);
}

/// Fits the text into a width unless that is 0.
void SvgCanvas::writeText(const TextRun& run, const QColor& colour, const QByteArray& letters, double width) {
    if (letters.isEmpty())
        return;
    const QFontInfo info(fontOf(run, kMeasured));
    // Text space has y upwards; SVG's own text has not. Sizes are kept near 100: some viewers can't show
    // letters in sizes near 1.
    const QTransform& place = run.place;
    out_ += "<text xml:space=\"preserve\" transform=\"matrix(";
    const std::array<double, 4> turn{place.m11(), place.m12(), -place.m21(), -place.m22()};
    for (const double number : turn) {
        append(out_, number / kMeasured, 5);
        out_ += ' ';
    }
    write(place.dx());
    out_ += ' ';
    write(place.dy());
    out_ += ")\" font-family=\"" + escaped(info.family()) + ", sans-serif\" font-size=\"";
    write(info.pixelSize());
    out_ += '"';
    if (run.bold)
        out_ += " font-weight=\"bold\"";
    if (run.italic)
        out_ += " font-style=\"italic\"";
    writeColour("fill", colour);
    if (width > 0.0) {
        out_ += " lengthAdjust=\"spacingAndGlyphs\" textLength=\"";
        write(width * kMeasured);
        out_ += '"';
    }
    out_ += '>' + letters + "</text>\n";
}

void SvgCanvas::setClip(const QRectF& rectangle) {
    if (rectangle == clip_)
        return;
    clip_ = rectangle;
    endStrokes();
    if (isInClip_)
        out_ += "</g>\n";
    isInClip_ = !rectangle.isNull();
    if (!isInClip_)
        return;
    // Documents can share a page, and with it their ids: the same id stands for the same rectangle.
    QByteArray id = "clip";
    for (const double number : {rectangle.x(), rectangle.y(), rectangle.width(), rectangle.height()}) {
        id += '_';
        append(id, number, 2);
    }
    QPainterPath path;
    path.addRect(rectangle);
    out_ += "<clipPath id=\"" + id + "\"><path d=\"";
    write(path);
    out_ += "\"/></clipPath>\n<g clip-path=\"url(#" + id + ")\">\n";
}

QByteArray SvgCanvas::finish() {
    setClip({});
    endStrokes();
    out_ += "</svg>\n";
    return std::move(out_);
}

} // namespace zu::picture
