#include "measure.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

double peakOfProcess() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024;
}

double residentBytes() {
    std::size_t all = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

double secondsOf(const Task& task, Held& held) {
    const auto start = std::chrono::steady_clock::now();
    held = task();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

Measure measureHere(int runs, const Task& task) noexcept {
    const double peak = peakOfProcess();
    const double resident = residentBytes();
    Held held;
    Measure measure;
    measure.firstSeconds = secondsOf(task, held);
    measure.seconds = measure.firstSeconds;
    measure.peakBytes = peakOfProcess() - peak;
    measure.keptBytes = residentBytes() - resident;
    for (int i = 1; i < runs; ++i) {
        held.reset();
        measure.seconds = std::min(measure.seconds, secondsOf(task, held));
    }
    return measure;
}

} // namespace

Measure measure(int runs, const Task& task) {
    int ends[2];
    if (pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0) {
        const Measure measure = measureHere(runs, task);
        const ssize_t written = write(ends[1], &measure, sizeof measure);
        _exit(written == sizeof measure ? 0 : 1);
    }
    close(ends[1]); // so that a child that fails ends the pipe
    Measure measure;
    const ssize_t got = read(ends[0], &measure, sizeof measure);
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (got != sizeof measure || status != 0)
        throw std::runtime_error("a task failed");
    return measure;
}
