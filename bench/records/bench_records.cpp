// Reads part drawings of 1, 10 and 100 MB, ASCII and binary, and a folder of 3,000 small ones, compared with
// dxflib, ezdxf and with the minimum work of any reader: bench_records [FOLDER [small-pages]].
#include "limit.h"
#include "measure.h"
#include "part_generator.h"

#include <zucomn/dxf.h>

#include <array>
#include <charconv>
#include <cstdio>
#include <dl_creationadapter.h>
#include <dl_dxf.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <sys/prctl.h>
#include <unistd.h>
#include <zuhost/paths.h>
#include <zuhost/texts.h>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kFolderFiles = 3000;
constexpr std::size_t kSmallFile = 12000;
constexpr std::size_t kTinyFile = 600; ///< Measures the cost of a file apart from its entities.

Held readPart(const std::string& path) {
    auto part = std::make_shared<CAcadDxf>(zuhost::textOf(zuhost::hostPath(path)));
    if (part->GetEntities().IsEmpty() != FALSE)
        throw std::runtime_error("nothing in " + path);
    return part;
}

Held readWithDxflib(const std::string& path) {
    DL_CreationAdapter nothing;
    DL_Dxf reader;
    if (!reader.in(path, &nothing))
        throw std::runtime_error("dxflib cannot read " + path);
    return nullptr;
}

/// Seconds that ezdxf takes to read the drawing, without the start of Python; nullopt where it is not
/// installed. It keeps all of the drawing and is one pass, as it is too slow for more.
std::optional<double> secondsOfEzdxf(const std::string& path) {
    const std::string command = "/usr/bin/python3 -c \"import sys, time, ezdxf\nstart = time.perf_counter()\n"
                                "ezdxf.readfile(sys.argv[1])\nprint(time.perf_counter() - start)\" '" +
                                path + "' 2>/dev/null";
    FILE* const output = popen(command.c_str(), "r");
    if (output == nullptr)
        return std::nullopt;
    std::array<char, 64> line{};
    const bool isRead = std::fgets(line.data(), static_cast<int>(line.size()), output) != nullptr;
    double seconds = 0.0;
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), seconds);
    return pclose(output) == 0 && isRead && error == std::errc() ? std::optional(seconds) : std::nullopt;
}

Held measureLimit(const std::string& path) {
    [[maybe_unused]] const volatile double sum = readLimit(path);
    return nullptr;
}

void print(const char* what, const Measure& task, double bytes) {
    std::printf("  %-10s %9.2f ms %8.1f MB/s   peak %5.2f, kept %5.2f times the file\n", what,
                task.seconds * 1e3, bytes / task.seconds / 1e6, task.peakBytes / bytes,
                task.keptBytes / bytes);
}

void writeFile(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

void compare(const fs::path& folder, std::size_t megabytes, bool binary) {
    const std::string path = folder / "part.dxf";
    measure(1, [&] {
        writeFile(path, makePart(megabytes * 1000000, binary));
        return nullptr;
    });
    const auto bytes = static_cast<double>(fs::file_size(path));
    const int runs = megabytes < 100 ? 20 : 7;
    std::printf("%zu MB %s\n", megabytes, binary ? "binary" : "ASCII");
    const Measure limit = measure(runs, [&] { return measureLimit(path); });
    const Measure part = measure(runs, [&] { return readPart(path); });
    print("limit", limit, bytes);
    print("CAcadDxf", part, bytes);
    std::printf("  %.2f of the limit's speed", limit.seconds / part.seconds);
    if (!binary) {
        const Measure dxflib = measure(megabytes < 100 ? 5 : 2, [&] { return readWithDxflib(path); });
        std::printf(", %.1f times dxflib's (%.1f MB/s)", dxflib.seconds / part.seconds,
                    bytes / dxflib.seconds / 1e6);
        if (const std::optional<double> ezdxf = secondsOfEzdxf(path))
            std::printf(", %.0f times ezdxf's (%.2f MB/s)", *ezdxf / part.seconds, bytes / *ezdxf / 1e6);
    }
    std::printf("\n");
}

void compareFolder(const fs::path& folder, std::size_t fileSize) {
    const std::string bytes = makePart(fileSize, false);
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < kFolderFiles; ++i) {
        paths.push_back(folder / ("part-" + std::to_string(i) + ".dxf"));
        writeFile(paths.back(), bytes);
    }
    const auto overAll = [&](const std::function<void(const std::string&)>& read) {
        return measure(5, [&] {
            for (const std::string& path : paths)
                read(path);
            return nullptr;
        });
    };
    const Measure opening = overAll([](const std::string& path) { std::ifstream(path, std::ios::binary); });
    const Measure limit = overAll(measureLimit);
    const Measure part = overAll(readPart);
    const Measure dxflib = overAll(readWithDxflib);
    const auto each = [](const Measure& all) { return all.seconds * 1e6 / kFolderFiles; };
    std::printf(
        "%zu files of %zu bytes, microseconds each: opening %.1f, limit %.1f, CAcadDxf %.1f, dxflib %.1f\n",
        kFolderFiles, bytes.size(), each(opening), each(limit), each(part), each(dxflib));
}

/// Reads each form once, so that one-time work such as resolving library symbols is not measured.
void warmUp(const fs::path& folder) {
    const std::string path = folder / "first.dxf";
    for (const bool binary : {true, false}) {
        writeFile(path, makePart(kSmallFile, binary));
        measureLimit(path);
        readPart(path);
    }
    readWithDxflib(path);
}

} // namespace

int main(int argc, char** argv) {
    const fs::path folder =
        fs::path(argc > 1 ? argv[1] : ".") / ("bench-records-" + std::to_string(getpid()));
    fs::create_directories(folder);
    if (argc > 2 && std::string_view(argv[2]) == "small-pages" && prctl(PR_SET_THP_DISABLE, 1, 0, 0, 0) != 0)
        throw std::runtime_error("large pages cannot be switched off");
    warmUp(folder);
    for (const bool binary : {false, true})
        for (const std::size_t megabytes : {1U, 10U, 100U})
            compare(folder, megabytes, binary);
    for (const std::size_t fileSize : {kTinyFile, kSmallFile})
        compareFolder(folder, fileSize);
    fs::remove_all(folder);
    return 0;
}
