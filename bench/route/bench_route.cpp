#include "network.h"

#include "../../tests/route/plain_search.h"

#include <zucomn/route.h>

#include <arxutil.h>
#include <dbents.h>
#include <dbobjptr.h>

#include <benchmark/benchmark.h>
#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <nanoflann.hpp>

#include <algorithm>
#include <map>

namespace {

constexpr double kTolerance = 0.1;

Network& network(int size) {
    static std::map<int, Network> networks;
    return networks.try_emplace(size, size).first->second;
}

void report(benchmark::State& state, std::size_t joins) {
    state.counters["joins"] = static_cast<double>(joins);
    state.SetComplexityN(state.range(0));
}

/// Searches the elements connected to each element of the group; with `isFirst` the library has not indexed
/// the group yet.
void search(benchmark::State& state, bool isFirst) {
    const Network& drawn = network(static_cast<int>(state.range(0)));
    std::size_t joins = 0;
    for (auto _ : state) {
        if (isFirst) {
            state.PauseTiming();
            // Any change of the group makes the library index it again.
            RootComn_DelGroupMember(drawn.group, drawn.elements.last());
            RootComn_AddGroupMember(drawn.group, drawn.elements.last());
            state.ResumeTiming();
        }
        joins = 0;
        for (const AcDbObjectId element : drawn.elements) {
            AcDbObjectIdArray found;
            RootComn_GetConnectBlock(drawn.group, element, found, nullptr, 0);
            joins += static_cast<std::size_t>(found.length());
        }
    }
    report(state, joins);
}

void searchOfNewDrawing(benchmark::State& state) {
    std::size_t joins = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto drawn = std::make_unique<Network>(static_cast<int>(state.range(0)));
        state.ResumeTiming();
        joins = 0;
        for (const AcDbObjectId element : drawn->elements) {
            AcDbObjectIdArray found;
            RootComn_GetConnectBlock(drawn->group, element, found, nullptr, 0);
            joins += static_cast<std::size_t>(found.length());
        }
        state.PauseTiming();
        drawn.reset();
        state.ResumeTiming();
    }
    report(state, joins);
}

/// Moves one element before each search.
void searchAfterEdits(benchmark::State& state) {
    const Network& drawn = network(static_cast<int>(state.range(0)));
    std::size_t joins = 0;
    for (auto _ : state) {
        joins = 0;
        for (const AcDbObjectId element : drawn.elements) {
            AcGePoint3d place;
            RootComn_GetOriginPoint(element, place);
            RootComn_SetOriginPoint(element, place + AcGeVector3d(0.01, 0.0, 0.0));
            AcDbObjectIdArray found;
            RootComn_GetConnectBlock(drawn.group, element, found, nullptr, 0);
            joins += static_cast<std::size_t>(found.length());
            RootComn_SetOriginPoint(element, place);
        }
    }
    report(state, joins);
}

/// Removes every member from its group, one by one, and adds all of them back in one call.
void regroup(benchmark::State& state) {
    const Network& drawn = network(static_cast<int>(state.range(0)));
    AcDbObjectIdArray groups;
    groups.append(drawn.group);
    for (auto _ : state) {
        for (const AcDbObjectId element : drawn.elements)
            RootComn_DelGroupMember(drawn.group, element);
        RootComn_MakeGroup(drawn.elements, groups);
    }
    state.SetComplexityN(state.range(0));
}

/// Removes every member from its group and adds each back in its own call.
void regroupOneByOne(benchmark::State& state) {
    const Network& drawn = network(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        for (const AcDbObjectId element : drawn.elements)
            RootComn_DelGroupMember(drawn.group, element);
        for (const AcDbObjectId element : drawn.elements)
            RootComn_AddGroupMember(drawn.group, element);
    }
    state.SetComplexityN(state.range(0));
}

/// Lists the route groups of every element.
void listGroups(benchmark::State& state) {
    const Network& drawn = network(static_cast<int>(state.range(0)));
    CStringArray link;
    link.Add(L"1|");
    for (const AcDbObjectId end : {drawn.elements.first(), drawn.elements.last()})
        ApiComn_appendAttributesArray(end, L"ZU_LINK", link);
    for (auto _ : state) {
        for (const AcDbObjectId element : drawn.elements) {
            AcDbObjectIdArray groups;
            CStringArray names;
            CUIntArray kinds;
            int count = 0;
            RootComn_GetRootGroups5(element, &count, groups, names, kinds, 0);
            benchmark::DoNotOptimize(count);
        }
    }
    state.SetComplexityN(state.range(0));
}

/// Applies the rule literally. Measures a few elements only: the cost of all elements is quadratic.
void plainSearch(benchmark::State& state) {
    const Network& drawn = network(static_cast<int>(state.range(0)));
    constexpr int kSearches = 10;
    for (auto _ : state) {
        for (int i = 0; i < kSearches; ++i) {
            AcDbObjectIdArray found;
            plainConnectBlock(drawn.elements, drawn.elements[i * 7], nullptr, found, 0);
            benchmark::DoNotOptimize(found.length());
        }
    }
    state.counters["whole group, s"] =
        benchmark::Counter(static_cast<double>(kSearches) / static_cast<double>(state.range(0)),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

struct Cloud {
    std::vector<Network::Point> points;

    [[nodiscard]] std::size_t kdtree_get_point_count() const { return points.size(); }
    [[nodiscard]] double kdtree_get_pt(std::size_t i, std::size_t axis) const {
        return axis == 0 ? points[i].place.x : points[i].place.y;
    }
    template <typename Box>
    bool kdtree_get_bbox(Box& /*box*/) const {
        return false;
    }
};

/// Builds a kd-tree over the points and searches each point's neighbours.
void kdTreeOfPoints(benchmark::State& state) {
    const Cloud cloud{network(static_cast<int>(state.range(0))).points()};
    using Tree = nanoflann::KDTreeSingleIndexAdaptor<nanoflann::L2_Simple_Adaptor<double, Cloud>, Cloud, 2,
                                                     std::uint32_t>;
    std::size_t joins = 0;
    for (auto _ : state) {
        joins = 0;
        Tree tree(2, cloud, nanoflann::KDTreeSingleIndexAdaptorParams(10));
        tree.buildIndex();
        std::vector<std::pair<std::uint32_t, double>> near;
        for (const Network::Point& point : cloud.points) {
            const double centre[] = {point.place.x, point.place.y};
            near.clear();
            tree.radiusSearch(centre, kTolerance * kTolerance, near, {});
            joins += near.size() - 1;
        }
    }
    report(state, joins);
}

void rTreeOfPoints(benchmark::State& state) {
    namespace bg = boost::geometry;
    using Place = bg::model::d2::point_xy<double>;
    using Entry = std::pair<Place, int>;
    const std::vector<Network::Point> points = network(static_cast<int>(state.range(0))).points();
    std::size_t joins = 0;
    for (auto _ : state) {
        joins = 0;
        std::vector<Entry> entries;
        entries.reserve(points.size());
        for (const Network::Point& point : points)
            entries.emplace_back(Place(point.place.x, point.place.y), point.element);
        const bg::index::rtree<Entry, bg::index::rstar<16>> tree(entries);
        for (const Network::Point& point : points) {
            const bg::model::box<Place> around(Place(point.place.x - kTolerance, point.place.y - kTolerance),
                                               Place(point.place.x + kTolerance, point.place.y + kTolerance));
            joins += static_cast<std::size_t>(
                         std::distance(tree.qbegin(bg::index::intersects(around)), tree.qend())) -
                     1;
        }
    }
    report(state, joins);
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond);
}

} // namespace

BENCHMARK(searchOfNewDrawing)->Apply(sizes)->Iterations(1)->Complexity();
BENCHMARK_CAPTURE(search, after_a_change_of_the_group, true)->Apply(sizes)->Complexity();
BENCHMARK_CAPTURE(search, known_group, false)->Apply(sizes)->Complexity();
BENCHMARK(searchAfterEdits)->Apply(sizes)->Complexity();
BENCHMARK(regroup)->Apply(sizes)->Complexity();
BENCHMARK(regroupOneByOne)->Apply(sizes)->Complexity();
BENCHMARK(listGroups)->Apply(sizes)->Complexity();
BENCHMARK(kdTreeOfPoints)->Apply(sizes)->Complexity();
BENCHMARK(rTreeOfPoints)->Apply(sizes)->Complexity();
BENCHMARK(plainSearch)->Apply(sizes)->Iterations(1);
BENCHMARK_MAIN();
