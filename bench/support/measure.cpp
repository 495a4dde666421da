#include "measure.h"

#include "own_process.h"

#include <algorithm>
#include <fstream>
#include <sys/resource.h>
#include <unistd.h>

namespace {

double peakOfProcess() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024;
}

/// Resident memory without pages of files: those of libraries are read when they are first used.
double residentBytes() {
    std::size_t all = 0;
    std::size_t resident = 0;
    std::size_t ofFiles = 0;
    std::ifstream("/proc/self/statm") >> all >> resident >> ofFiles;
    return static_cast<double>(resident - ofFiles) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

Measure measureHere(int runs, const Task& task) {
    const double peak = peakOfProcess();
    const double resident = residentBytes();
    Held held;
    const auto run = [&] { held = task(); };
    Measure measure;
    measure.firstSeconds = timed(run);
    measure.seconds = measure.firstSeconds;
    measure.peakBytes = peakOfProcess() - peak;
    measure.keptBytes = residentBytes() - resident;
    for (int i = 1; i < runs; ++i) {
        held.reset();
        measure.seconds = std::min(measure.seconds, timed(run));
    }
    return measure;
}

} // namespace

Measure measure(int runs, const Task& task) {
    return inOwnProcess([&] { return measureHere(runs, task); });
}
