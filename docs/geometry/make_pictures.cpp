// Draws the pictures of the geometry's documentation from what the operations themselves return. Inputs are
// grey, results red, picks blue crosses.

#include "svg_canvas.h"

#include <array>
#include <iostream>
#include <string>

namespace {

Line directedLine(SvgCanvas& canvas, const Line& line, const std::string& name) {
    canvas.input(line);
    canvas.arrow(line);
    canvas.text({line.x2 + 0.3, line.y2 - 0.3}, name);
    return line;
}

void basics(const std::string& path) {
    SvgCanvas canvas(path, 36, 16);
    const Line line = directedLine(canvas, {-15, -4, -3, 0}, "line");
    const Point left{-12, 3};
    const Point right{-6, -6};
    Line out{};
    for (const Point& side : {left, right}) {
        canvas.pick(side);
        Esg_parallel_line(&line, &side, 2.0, &out);
        canvas.result(out);
        canvas.arrow(out);
    }
    canvas.text({-13.8, 3.6}, "side 1: left");
    canvas.text({-6.5, -7.2}, "side -1: right");
    Point foot{};
    Esg_project_p2l(&left, &line, &foot);
    canvas.input(Line{left.x, left.y, foot.x, foot.y});
    canvas.dot(foot, "foot", 0.5, -0.9);

    const std::array<Point, 4> shape{{{5, 1}, {9, 1}, {9, 3}, {5, 6}}};
    const auto outline = [&](const std::array<Point, 4>& p, bool result) {
        for (std::size_t i = 0; i < p.size(); ++i) {
            const Point& next = p[(i + 1) % p.size()];
            const Line edge{p[i].x, p[i].y, next.x, next.y};
            result ? canvas.result(edge) : canvas.input(edge);
        }
    };
    outline(shape, false);
    const Line axis = directedLine(canvas, {3, -1, 16, 1}, "axis");
    std::array<Point, 4> moved{};
    Esg_mirror(&axis, 4, shape.data(), moved.data());
    outline(moved, true);
    canvas.text({8.8, -6.2}, "mirrored");
    const Point centre{9.5, 1};
    Esg_rotate(-90.0, &centre, 4, shape.data(), moved.data());
    outline(moved, true);
    canvas.dot(centre, "centre", 0.4, -0.3);
    canvas.text({10.2, 6}, "rotated by -90");
}

void intersections(const std::string& path) {
    SvgCanvas canvas(path, 40, 17);
    Point p1{};
    Point p2{};
    const Circle circle{-13, 1, 4};
    canvas.input(circle);
    const Line through = directedLine(canvas, {-19, -2, -6, 3}, "l");
    Esg_inter_l2c(&through, &circle, &p1, &p2);
    canvas.dot(p1, "p1", -0.9, -1.1);
    canvas.dot(p2, "p2");
    const Line touching = directedLine(canvas, {-19, 5, -7, 5}, "");
    Esg_inter_l2c(&touching, &circle, &p1, &p2);
    canvas.dot(p1, "p1");
    canvas.text({-19.5, 5.5}, "touching");
    canvas.text({-17, -7.8}, "line and circle");

    const Arcs arc{0, 0, 4.5, 330, 120};
    canvas.input(arc);
    const Line across = directedLine(canvas, {-6, -1.5, 7, 1}, "l");
    Esg_inter_l2a(&across, &arc, &p1, &p2);
    canvas.dot(p1, "p1", 0.4, -1.0);
    canvas.text({-4, -7.8}, "line and arc 330 to 120");

    const std::array<Circle, 4> pairs{{{11, 2.5, 3}, {14.5, 2.5, 2.5}, {12, -3.6, 2.3}, {15, -4.5, 2.2}}};
    for (const Circle& c : pairs)
        canvas.input(c);
    int n = 0;
    for (std::size_t i = 0; i < pairs.size(); i += 2) {
        Esg_inter_c2c(&pairs[i], &pairs[i + 1], &n, &p1, &p2);
        canvas.dot(p1, "p1", -1.3, -0.9);
        canvas.dot(p2, "p2", 0.3, 0.5);
    }
    canvas.text({10, -7.8}, "circle and circle");
}

void tangentCircles(const std::string& path) {
    SvgCanvas canvas(path, 30, 15);
    const Line a = directedLine(canvas, {-12, -1, 12, -1}, "a");
    const Line b = directedLine(canvas, {-5, -6.5, 5, 5.5}, "b");
    std::array<Circle, 4> out{};
    Esg_tangentArc_l2l(&a, &b, 2.0, out.data());
    for (std::size_t i = 0; i < out.size(); ++i) {
        canvas.result(out[i]);
        canvas.dot({out[i].cx, out[i].cy}, "out[" + std::to_string(i) + "]", -0.9, 0.5);
    }
}

void tangentLines(const std::string& path) {
    SvgCanvas canvas(path, 34, 14);
    const auto show = [&](const Circle& a, const Circle& b) {
        canvas.input(a);
        canvas.input(b);
        canvas.text({a.cx - 0.2, a.cy - 0.2}, "a");
        canvas.text({b.cx - 0.2, b.cy - 0.2}, "b");
        std::array<Line, 4> out{};
        int n = 0;
        Esg_tangentLine_c2c(&a, &b, out.data(), &n);
        for (std::size_t i = 0; i < static_cast<std::size_t>(n); ++i) {
            const Line& l = out[i];
            canvas.result(l);
            canvas.arrow(l);
            const double along = i < 2 ? 0.45 : 0.22;
            canvas.text({l.x1 + along * (l.x2 - l.x1) - 0.8,
                         l.y1 + along * (l.y2 - l.y1) + (i % 2 == 0 ? 0.5 : -1.0)},
                        "out[" + std::to_string(i) + "]");
        }
    };
    show({-12, 0, 4}, {0, 0, 2.5});
    show({8, 0, 3.5}, {12, 0, 2.5});
    canvas.text({-9.5, -6}, "apart: n = 4");
    canvas.text({8, -6}, "meeting: n = 2");
}

void fillet(const std::string& path) {
    SvgCanvas canvas(path, 30, 16);
    const Line a = directedLine(canvas, {-12, 0, 12, 0}, "a");
    const Line b = directedLine(canvas, {-5, -7, 5, 7}, "b");
    const std::array<Point, 4> picks{{{7, 4.5}, {-2, 5}, {-7, -4.5}, {2, -5}}};
    for (std::size_t i = 0; i < picks.size(); ++i) {
        Arcs arc{};
        Line outA{};
        Line outB{};
        Esg_fillet_l2l(&picks[i], &a, &b, 2.0, &arc, &outA, &outB);
        canvas.pick(picks[i]);
        canvas.text({picks[i].x + 0.5, picks[i].y - 0.3}, "pick " + std::to_string(i + 1));
        canvas.result(arc);
        if (i == 0) {
            canvas.result(outA);
            canvas.result(outB);
            canvas.text({8, -1.0}, "out_a");
            canvas.text({1.6, 5.4}, "out_b");
        }
        canvas.dot({outA.x1, outA.y1}, "");
        canvas.dot({outB.x1, outB.y1}, "");
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: make_geometry_pictures FOLDER\n";
        return 2;
    }
    const std::string folder = argv[1];
    basics(folder + "/basics.svg");
    intersections(folder + "/intersections.svg");
    tangentCircles(folder + "/tangent-circles.svg");
    tangentLines(folder + "/tangent-lines.svg");
    fillet(folder + "/fillet.svg");
}
