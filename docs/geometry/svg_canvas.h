#pragma once

#include <zucomn/geometry.h>

#include <fstream>
#include <string>

/// An SVG picture in drawing coordinates: y upwards, the origin in the middle.
class SvgCanvas {
public:
    /// A picture that shows the given width and height of the plane, written to a file.
    SvgCanvas(const std::string& path, double width, double height);
    ~SvgCanvas();
    SvgCanvas(const SvgCanvas&) = delete;
    SvgCanvas& operator=(const SvgCanvas&) = delete;

    void input(const Line& line);
    void input(const Circle& circle);
    void input(const Arcs& arc);
    void result(const Line& line);
    void result(const Circle& circle);
    void result(const Arcs& arc);
    /// An arrow head at the end of a line.
    void arrow(const Line& line);
    void dot(const Point& p, const std::string& label, double dx = 0.4, double dy = 0.4);
    void pick(const Point& p);
    void text(const Point& p, const std::string& text);

private:
    void draw(const Line& line, const char* style);
    void draw(const Circle& circle, const char* style);
    void draw(const Arcs& arc, const char* style);

    std::ofstream out_;
};
