#include "hand_written.h"

#include <CGAL/Aff_transformation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/intersections.h>
#include <benchmark/benchmark.h>
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/segment.hpp>

#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string_view>
#include <vector>

// Each operation next to the hand-written form of the same steps and, where they have it, to CGAL's inexact
// kernel and Boost.Geometry. Single operations run over an array of random input that fits the first cache.

namespace {

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
namespace bg = boost::geometry;
using BoostPoint = bg::model::d2::point_xy<double>;
using BoostSegment = bg::model::segment<BoostPoint>;

constexpr int kCases = 256;
constexpr int kPoints = 1000000;
constexpr double kRadius = 25.0;

/// Two lines that cross, two circles and a pick.
struct Input {
    Line a, b;
    Circle c, d;
    Point pick;
};

std::vector<Input> makeInputs() {
    std::mt19937 random(7);
    const auto number = [&](double low, double high) {
        return std::uniform_real_distribution(low, high)(random);
    };
    std::vector<Input> inputs;
    inputs.reserve(kCases);
    for (int i = 0; i < kCases; ++i)
        inputs.push_back({{number(-900, -500), number(-900, -500), number(500, 900), number(500, 900)},
                          {number(-900, -500), number(500, 900), number(500, 900), number(-900, -500)},
                          {number(-200, -100), number(-100, 100), number(50, 190)},
                          {number(100, 200), number(-100, 100), number(50, 190)},
                          {number(200, 400), number(-100, 100)}});
    return inputs;
}

const std::vector<Input> kInputs = makeInputs();

std::vector<Point> makePoints() {
    std::vector<Point> points;
    points.reserve(kPoints);
    for (int i = 0; i < kPoints; ++i)
        points.push_back({i * 0.37, 1000.0 - i * 0.11});
    return points;
}

/// Runs one operation per iteration, over all inputs in turn.
template <typename Operation>
void perCase(benchmark::State& state, Operation operation) {
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(operation(kInputs[i]));
        i = (i + 1) % kInputs.size();
    }
}

/// Runs a whole-array operation from one array of a million points to another.
template <typename Operation>
void perArray(benchmark::State& state, Operation operation) {
    const auto source = makePoints();
    std::vector<Point> target(source.size());
    for (auto _ : state) {
        operation(source.data(), target.data());
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kPoints);
}

struct Results {
    int code = 0, n = 0;
    Point p1{}, p2{};
    Line lines[4]{};
    Circle circles[4]{};
    Arcs arc{};
};

/// The bits of all numbers.
std::string_view numbersOf(const Results& results) {
    return {reinterpret_cast<const char*>(&results.p1), sizeof(Results) - offsetof(Results, p1)};
}

const Line kAxis{3, 4, 50, 90};
const Point kCentre{120, -40};
constexpr double kAngle = 33.0;

void lineLine(const Input& in, Results& out) {
    out.code = Esg_inter_l2l(&in.a, &in.b, &out.p1);
}
void lineLineByHand(const Input& in, Results& out) {
    out.code = hand::lineLine(in.a, in.b, out.p1);
}
void lineCircle(const Input& in, Results& out) {
    out.code = Esg_inter_l2c(&in.a, &in.c, &out.p1, &out.p2);
}
void lineCircleByHand(const Input& in, Results& out) {
    out.code = hand::lineCircle(in.a, in.c, out.p1, out.p2);
}
void circleCircle(const Input& in, Results& out) {
    out.code = Esg_inter_c2c(&in.c, &in.d, &out.n, &out.p1, &out.p2);
}
void circleCircleByHand(const Input& in, Results& out) {
    out.code = hand::circleCircle(in.c, in.d, out.n, out.p1, out.p2);
}
void tangentLines(const Input& in, Results& out) {
    out.code = Esg_tangentLine_c2c(&in.c, &in.d, out.lines, &out.n);
}
void tangentLinesByHand(const Input& in, Results& out) {
    out.code = hand::tangentLines(in.c, in.d, out.lines, out.n);
}
void tangentArcs(const Input& in, Results& out) {
    out.code = Esg_tangentArc_l2l(&in.a, &in.b, kRadius, out.circles);
}
void tangentArcsByHand(const Input& in, Results& out) {
    out.code = hand::tangentArcs(in.a, in.b, kRadius, out.circles);
}
void fillet(const Input& in, Results& out) {
    out.code = Esg_fillet_l2l(&in.pick, &in.a, &in.b, kRadius, &out.arc, &out.lines[0], &out.lines[1]);
}
void filletByHand(const Input& in, Results& out) {
    out.code = hand::fillet(in.pick, in.a, in.b, kRadius, out.arc, out.lines[0], out.lines[1]);
}
auto lineLineCgal(const Input& in) {
    const Kernel::Line_2 a(Kernel::Point_2(in.a.x1, in.a.y1), Kernel::Point_2(in.a.x2, in.a.y2));
    const Kernel::Line_2 b(Kernel::Point_2(in.b.x1, in.b.y1), Kernel::Point_2(in.b.x2, in.b.y2));
    return CGAL::intersection(a, b);
}
int segmentSegment(const Input& in) {
    Point p{};
    const int code = Esg_inter_i2i(&in.a, &in.b, &p);
    benchmark::DoNotOptimize(p);
    return code;
}
auto segmentSegmentCgal(const Input& in) {
    const Kernel::Segment_2 a(Kernel::Point_2(in.a.x1, in.a.y1), Kernel::Point_2(in.a.x2, in.a.y2));
    const Kernel::Segment_2 b(Kernel::Point_2(in.b.x1, in.b.y1), Kernel::Point_2(in.b.x2, in.b.y2));
    return CGAL::intersection(a, b);
}
BoostPoint segmentSegmentBoost(const Input& in) {
    const BoostSegment a({in.a.x1, in.a.y1}, {in.a.x2, in.a.y2});
    const BoostSegment b({in.b.x1, in.b.y1}, {in.b.x2, in.b.y2});
    std::vector<BoostPoint> found;
    bg::intersection(a, b, found);
    return found.empty() ? BoostPoint() : found.front();
}

void rotate(const Point* src, Point* dst) {
    Esg_rotate(kAngle, &kCentre, kPoints, src, dst);
}
void rotateByHand(const Point* src, Point* dst) {
    hand::rotate(kAngle, kCentre, kPoints, src, dst);
}
void mirror(const Point* src, Point* dst) {
    Esg_mirror(&kAxis, kPoints, src, dst);
}
void mirrorByHand(const Point* src, Point* dst) {
    hand::mirror(kAxis, kPoints, src, dst);
}
void copy(const Point* src, Point* dst) {
    std::memcpy(dst, src, sizeof(Point) * kPoints);
}

void transformCgal(benchmark::State& state) {
    const double c = std::cos(0.576);
    const double s = std::sin(0.576);
    const CGAL::Aff_transformation_2<Kernel> turn(c, -s, 12.0, s, c, -7.0);
    std::vector<Kernel::Point_2> source;
    for (const auto& p : makePoints())
        source.emplace_back(p.x, p.y);
    std::vector<Kernel::Point_2> target(source.size());
    for (auto _ : state) {
        for (std::size_t i = 0; i < source.size(); ++i)
            target[i] = turn(source[i]);
        benchmark::ClobberMemory();
    }
}

void transformBoost(benchmark::State& state) {
    const double c = std::cos(0.576);
    const double s = std::sin(0.576);
    const bg::strategy::transform::matrix_transformer<double, 2, 2> turn(c, -s, 12.0, s, c, -7.0, 0.0, 0.0,
                                                                         1.0);
    std::vector<BoostPoint> source;
    for (const auto& p : makePoints())
        source.emplace_back(p.x, p.y);
    std::vector<BoostPoint> target(source.size());
    for (auto _ : state) {
        for (std::size_t i = 0; i < source.size(); ++i)
            bg::transform(source[i], target[i], turn);
        benchmark::ClobberMemory();
    }
}

using CaseOperation = void (*)(const Input&, Results&);

struct Pair {
    const char* name;
    CaseOperation library;
    CaseOperation byHand;
};

constexpr Pair kPairs[] = {
    {"line-line", lineLine, lineLineByHand},
    {"line-circle", lineCircle, lineCircleByHand},
    {"circle-circle", circleCircle, circleCircleByHand},
    {"tangent lines", tangentLines, tangentLinesByHand},
    {"tangent circles", tangentArcs, tangentArcsByHand},
    {"fillet", fillet, filletByHand},
};

void perPair(benchmark::State& state, CaseOperation operation) {
    Results out;
    perCase(state, [&](const Input& in) {
        operation(in, out);
        benchmark::ClobberMemory();
        return out.code;
    });
}

/// Both forms must give the same bits before their times mean anything.
void checkSameResults() {
    for (const auto& pair : kPairs) {
        for (const auto& in : kInputs) {
            Results a;
            Results b;
            pair.library(in, a);
            pair.byHand(in, b);
            const bool same = a.code == b.code && a.n == b.n && numbersOf(a) == numbersOf(b);
            if (!same) {
                std::cerr << pair.name << ": results differ\n";
                std::exit(1);
            }
        }
    }
    const auto source = makePoints();
    std::vector<Point> a(source.size());
    std::vector<Point> b(source.size());
    for (const auto& [library, byHand] :
         {std::pair(&rotate, &rotateByHand), std::pair(&mirror, &mirrorByHand)}) {
        library(source.data(), a.data());
        byHand(source.data(), b.data());
        if (std::memcmp(a.data(), b.data(), sizeof(Point) * a.size()) != 0) {
            std::cerr << "arrays differ\n";
            std::exit(1);
        }
    }
}

void addArray(const char* name, void (*operation)(const Point*, Point*)) {
    benchmark::RegisterBenchmark(name, [operation](benchmark::State& s) {
        perArray(s, operation);
    })->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv) {
    checkSameResults();
    for (const auto& pair : kPairs) {
        const std::string name = pair.name;
        benchmark::RegisterBenchmark((name + "/library").c_str(),
                                     [&](benchmark::State& s) { perPair(s, pair.library); });
        benchmark::RegisterBenchmark((name + "/by hand").c_str(),
                                     [&](benchmark::State& s) { perPair(s, pair.byHand); });
    }
    benchmark::RegisterBenchmark("line-line/CGAL", [](benchmark::State& s) { perCase(s, lineLineCgal); });
    benchmark::RegisterBenchmark("segments/library", [](benchmark::State& s) { perCase(s, segmentSegment); });
    benchmark::RegisterBenchmark("segments/CGAL",
                                 [](benchmark::State& s) { perCase(s, segmentSegmentCgal); });
    benchmark::RegisterBenchmark("segments/Boost",
                                 [](benchmark::State& s) { perCase(s, segmentSegmentBoost); });
    addArray("rotate/library", rotate);
    addArray("rotate/by hand", rotateByHand);
    benchmark::RegisterBenchmark("rotate/CGAL", transformCgal)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("rotate/Boost", transformBoost)->Unit(benchmark::kMillisecond);
    addArray("mirror/library", mirror);
    addArray("mirror/by hand", mirrorByHand);
    addArray("copy alone", copy);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
