// Reading part drawings of 1, 10 and 100 MB, ASCII and binary, and a folder of 3,000 small ones, next to
// dxflib and to the least that any reader has to do. Each task runs in a process of its own, so that its
// memory is its own.
#include "limit.h"
#include "part_generator.h"

#include <zucomn/dxf.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <dl_creationadapter.h>
#include <dl_dxf.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <malloc.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zuhost/paths.h>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kFolderFiles = 3000;
constexpr std::size_t kSmallFile = 12000;

struct Measure {
    double seconds = 0;
    double peakBytes = 0; ///< Most memory at any time, beyond the program's own.
    double keptBytes = 0; ///< In use after reading.
};

double peakOfProcess() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024;
}

/// Runs a task that gives back the bytes it holds in the end.
Measure runInChild(const std::function<double()>& task) {
    int ends[2];
    if (pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0) {
        Measure measure;
        const double before = peakOfProcess();
        const auto start = std::chrono::steady_clock::now();
        measure.keptBytes = task();
        measure.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        measure.peakBytes = peakOfProcess() - before;
        const ssize_t written = write(ends[1], &measure, sizeof measure);
        _exit(written == sizeof measure ? 0 : 1);
    }
    Measure measure;
    const ssize_t got = read(ends[0], &measure, sizeof measure);
    close(ends[0]);
    close(ends[1]);
    int status = 0;
    waitpid(child, &status, 0);
    if (got != sizeof measure || status != 0)
        throw std::runtime_error("a task failed");
    return measure;
}

/// The quickest of some runs.
Measure best(int runs, const std::function<double()>& task) {
    Measure result = runInChild(task);
    for (int i = 1; i < runs; ++i) {
        const Measure measure = runInChild(task);
        result.seconds = std::min(result.seconds, measure.seconds);
        result.peakBytes = std::max(result.peakBytes, measure.peakBytes);
    }
    return result;
}

double bytesInUse() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/// The drawing is not freed: its process ends.
double readPart(const std::string& path) {
    const double before = bytesInUse();
    const auto* const part = new CAcadDxf(CString(zuhost::hostPath(path)));
    if (part->GetEntities().IsEmpty() != FALSE)
        throw std::runtime_error("nothing in " + path);
    return bytesInUse() - before;
}

double readWithDxflib(const std::string& path) {
    DL_CreationAdapter nothing;
    DL_Dxf reader;
    if (!reader.in(path, &nothing))
        throw std::runtime_error("dxflib cannot read " + path);
    return 0;
}

double touchLimit(const std::string& path) {
    volatile double sum = readLimit(path);
    return sum * 0;
}

void print(const char* what, const Measure& measure, double bytes) {
    std::printf("  %-10s %9.2f ms %8.1f MB/s   peak %5.2f, kept %5.2f times the file\n", what,
                measure.seconds * 1e3, bytes / measure.seconds / 1e6, measure.peakBytes / bytes,
                measure.keptBytes / bytes);
}

void writeFile(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

void compare(const fs::path& folder, std::size_t megabytes, bool binary) {
    const std::string path = folder / "part.dxf";
    runInChild([&] {
        writeFile(path, makePart(megabytes * 1000000, binary));
        return 0.0;
    });
    const auto bytes = static_cast<double>(fs::file_size(path));
    const int runs = megabytes < 100 ? 9 : 5;
    std::printf("%zu MB %s\n", megabytes, binary ? "binary" : "ASCII");
    const Measure limit = best(runs, [&] { return touchLimit(path); });
    const Measure part = best(runs, [&] { return readPart(path); });
    print("limit", limit, bytes);
    print("CAcadDxf", part, bytes);
    std::printf("  %.2f of the limit's speed", limit.seconds / part.seconds);
    if (!binary) {
        const Measure dxflib = best(megabytes < 100 ? 3 : 1, [&] { return readWithDxflib(path); });
        std::printf(", %.1f times dxflib's (%.1f MB/s)", dxflib.seconds / part.seconds,
                    bytes / dxflib.seconds / 1e6);
    }
    std::printf("\n");
}

void compareFolder(const fs::path& folder) {
    const std::string bytes = makePart(kSmallFile, false);
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < kFolderFiles; ++i) {
        paths.push_back(folder / ("part-" + std::to_string(i) + ".dxf"));
        writeFile(paths.back(), bytes);
    }
    const auto overAll = [&](const std::function<double(const std::string&)>& read) {
        return best(5, [&] {
            for (const std::string& path : paths)
                read(path);
            return 0.0;
        });
    };
    const Measure opening = overAll([](const std::string& path) {
        const std::ifstream file(path, std::ios::binary);
        return file.good() ? 0.0 : 1.0;
    });
    const Measure limit = overAll(touchLimit);
    const Measure part = overAll([](const std::string& path) {
        const CAcadDxf read(CString(zuhost::hostPath(path)));
        return static_cast<double>(read.GetEntities().GetCount());
    });
    const Measure dxflib = overAll(readWithDxflib);
    const auto each = [](const Measure& measure) { return measure.seconds * 1e6 / kFolderFiles; };
    std::printf(
        "%zu files of %zu bytes, microseconds each: opening %.1f, limit %.1f, CAcadDxf %.1f, dxflib %.1f\n",
        kFolderFiles, bytes.size(), each(opening), each(limit), each(part), each(dxflib));
}

} // namespace

int main(int argc, char** argv) {
    const fs::path folder =
        fs::path(argc > 1 ? argv[1] : ".") / ("bench-records-" + std::to_string(getpid()));
    fs::create_directories(folder);
    for (const bool binary : {false, true})
        for (const std::size_t megabytes : {1U, 10U, 100U})
            compare(folder, megabytes, binary);
    compareFolder(folder);
    fs::remove_all(folder);
    return 0;
}
