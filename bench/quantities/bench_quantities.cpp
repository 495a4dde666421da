#include "own_process.h"
#include "recorded_network.h"

#include <dbapserv.h>
#include <zucomn/model/attributes.h>
#include <zucomn/model/audit.h>
#include <zucomn/model/elements.h>
#include <zucomn/model/quantities.h>
#include <zuhost/text_codec.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;

std::size_t readElements(const AcDbDatabase& drawing) {
    std::size_t count = 0;
    for (const AcDbObjectId id : zucomn::modelSpaceReferences(drawing))
        count += zucomn::readElement(id).has_value() ? 1 : 0;
    return count;
}

std::size_t readAttributes(const AcDbDatabase& drawing) {
    std::size_t count = 0;
    for (const AcDbObjectId id : zucomn::modelSpaceReferences(drawing))
        count += zucomn::readElement(id).has_value() && !zucomn::readAttributes(id).empty() ? 1 : 0;
    return count;
}

std::size_t countBy(const AcDbDatabase& drawing, std::vector<zucomn::QuantityField> by) {
    zucomn::QuantityQuery query;
    query.by = std::move(by);
    return zucomn::countQuantities(drawing, query).sum.count;
}

std::size_t count(const AcDbDatabase& drawing) {
    return countBy(drawing, zucomn::QuantityQuery().by);
}

std::size_t countBySizeAndGroup(const AcDbDatabase& drawing) {
    return countBy(drawing, {zucomn::QuantityField::group, zucomn::QuantityField::size});
}

std::size_t filter(const AcDbDatabase& drawing) {
    zucomn::ElementFilter filter;
    filter.where = zucomn::parseCondition(L"S501=給気 or S302>=0").condition;
    return zucomn::filterElements(zucomn::modelSpaceReferences(drawing), filter).size();
}

std::size_t audit(const AcDbDatabase& drawing) {
    (void)zucomn::auditRoutes(drawing, false);
    return zucomn::modelSpaceReferences(drawing).size();
}

struct Task {
    const char* name;
    std::size_t (*run)(const AcDbDatabase& drawing); ///< Returns the number of elements.
};

/// The others are shown as multiples of the first.
constexpr Task kTasks[] = {{"open, read every element", readElements},
                           {"open, with its attributes", readAttributes},
                           {"open, quantities", count},
                           {"open, quantities by group", countBySizeAndGroup},
                           {"open, filter by a condition", filter},
                           {"open, audit of routes", audit}};

/// Returns processor time, which other programs disturb less than time on the clock.
double seconds(const Task& task, const std::wstring& path, int expected) {
    return inOwnProcess([&] {
        const std::clock_t start = std::clock();
        AcDbDatabase drawing(false);
        if (drawing.dxfIn(path.c_str()) != Acad::eOk)
            throw std::runtime_error("cannot open the drawing");
        acdbHostApplicationServices()->setWorkingDatabase(&drawing);
        if (task.run(drawing) != static_cast<std::size_t>(expected))
            throw std::runtime_error("not every element was counted");
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
        return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    });
}

void benchmark(const std::wstring& path, int elements) {
    constexpr int kRuns = 7;
    std::printf("%d elements\n", elements);
    double first = 0.0;
    const auto measure = [&](const Task& task, const char* name) {
        double best = 1e9;
        for (int run = 0; run < kRuns; ++run)
            best = std::min(best, seconds(task, path, elements));
        first = first == 0.0 ? best : first;
        std::printf("  %-28s %8.1f ms %6.2f us each %5.2f times\n", name, best * 1e3, best * 1e6 / elements,
                    best / first);
        std::fflush(stdout);
    };
    inOwnProcess([&] { return timed([&] { writeNetwork(path, elements, Design::sound); }); });
    for (const Task& task : kTasks)
        measure(task, task.name);
    inOwnProcess([&] { return timed([&] { writeNetwork(path, elements, Design::faulty); }); });
    measure({"", audit}, "... of faulty routes");
}

} // namespace

int main() {
    const fs::path file = "bench-quantities-" + std::to_string(getpid()) + ".dxf";
    for (const int count : {1'000, 10'000, 100'000})
        benchmark(zuhost::fromUtf8(fs::absolute(file).string()), count);
    fs::remove(file);
    return 0;
}
