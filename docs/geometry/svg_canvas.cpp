#include "svg_canvas.h"

#include <cmath>
#include <numbers>

namespace {

constexpr double kPixels = 20.0;
constexpr double kFullTurn = 360.0;

Point onCircle(const Arcs& arc, double degrees) {
    const double t = degrees * std::numbers::pi / 180.0;
    return {arc.cx + arc.r * std::cos(t), arc.cy + arc.r * std::sin(t)};
}

} // namespace

SvgCanvas::SvgCanvas(const std::string& path, double width, double height) : out_(path) {
    out_.precision(6);
    out_ << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << width * kPixels << "\" height=\""
         << height * kPixels << "\" viewBox=\"" << -width / 2 << ' ' << -height / 2 << ' ' << width << ' '
         << height
         << "\">\n<style>\n"
            ".paper{fill:#fff}\n"
            ".input{stroke:#5a6675;stroke-width:.08;fill:none}\n"
            ".result{stroke:#c8321e;stroke-width:.13;fill:none}\n"
            ".head{fill:#5a6675}\n.dot{fill:#c8321e}\n.pick{stroke:#1b62b5;stroke-width:.12}\n"
            "text{font:.75px sans-serif;fill:#1d2530;stroke:#fff;stroke-width:.2;paint-order:stroke}\n"
            "</style>\n<rect class=\"paper\" x=\""
         << -width / 2 << "\" y=\"" << -height / 2 << "\" width=\"" << width << "\" height=\"" << height
         << "\"/>\n";
}

SvgCanvas::~SvgCanvas() {
    out_ << "</svg>\n";
}

void SvgCanvas::input(const Line& line) {
    draw(line, "input");
}

void SvgCanvas::input(const Circle& circle) {
    draw(circle, "input");
}

void SvgCanvas::input(const Arcs& arc) {
    draw(arc, "input");
}

void SvgCanvas::result(const Line& line) {
    draw(line, "result");
}

void SvgCanvas::result(const Circle& circle) {
    draw(circle, "result");
}

void SvgCanvas::result(const Arcs& arc) {
    draw(arc, "result");
}

void SvgCanvas::arrow(const Line& line) {
    double angle = 0.0;
    const Point from{line.x1, line.y1};
    const Point to{line.x2, line.y2};
    Esg_get_angle(&from, &to, &angle);
    out_ << "<path class=\"head\" d=\"M0 0L-.7 .25L-.7 -.25Z\" transform=\"translate(" << line.x2 << ' '
         << -line.y2 << ") rotate(" << -angle << ")\"/>\n";
}

void SvgCanvas::dot(const Point& p, const std::string& label, double dx, double dy) {
    out_ << "<circle class=\"dot\" cx=\"" << p.x << "\" cy=\"" << -p.y << "\" r=\".18\"/>\n";
    text({p.x + dx, p.y + dy}, label);
}

void SvgCanvas::pick(const Point& p) {
    out_ << "<path class=\"pick\" d=\"M-.35 0H.35M0 -.35V.35\" transform=\"translate(" << p.x << ' ' << -p.y
         << ")\"/>\n";
}

void SvgCanvas::text(const Point& p, const std::string& text) {
    out_ << "<text x=\"" << p.x << "\" y=\"" << -p.y << "\">" << text << "</text>\n";
}

void SvgCanvas::draw(const Line& line, const char* style) {
    out_ << "<line class=\"" << style << "\" x1=\"" << line.x1 << "\" y1=\"" << -line.y1 << "\" x2=\""
         << line.x2 << "\" y2=\"" << -line.y2 << "\"/>\n";
}

void SvgCanvas::draw(const Circle& circle, const char* style) {
    out_ << "<circle class=\"" << style << "\" cx=\"" << circle.cx << "\" cy=\"" << -circle.cy << "\" r=\""
         << circle.r << "\"/>\n";
}

void SvgCanvas::draw(const Arcs& arc, const char* style) {
    const Point from = onCircle(arc, arc.sang);
    const Point to = onCircle(arc, arc.eang);
    const double sweep = std::fmod(arc.eang - arc.sang + kFullTurn, kFullTurn);
    out_ << "<path class=\"" << style << "\" d=\"M" << from.x << ' ' << -from.y << 'A' << arc.r << ' '
         << arc.r << " 0 " << (sweep > kFullTurn / 2 ? 1 : 0) << " 0 " << to.x << ' ' << -to.y << "\"/>\n";
}
