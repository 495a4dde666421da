#include "own_process.h"
#include "recorded_network.h"

#include <dbmain.h>
#include <zuhost/text_codec.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr double kBytesPerUnit = 1024.0; ///< Of ru_maxrss.

struct Cost {
    double seconds = 0.0; ///< Of the processor, which other programs disturb less than time on the clock.
    double peakBytes = 0.0;
};

double processorSeconds(const rusage& usage) {
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Runs the program without showing what it prints.
Cost costOf(const std::vector<std::string>& arguments) {
    std::vector<char*> words{const_cast<char*>(ZU_PROGRAM)};
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        execv(ZU_PROGRAM, words.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child || status != 0)
        throw std::runtime_error("the program failed");
    return {processorSeconds(usage), static_cast<double>(usage.ru_maxrss) * kBytesPerUnit};
}

Cost costOfOpening(const std::string& drawing) {
    return inOwnProcess([&] {
        const std::wstring path = zuhost::fromUtf8(drawing);
        rusage before{};
        getrusage(RUSAGE_SELF, &before);
        AcDbDatabase database(false);
        if (database.dxfIn(path.c_str()) != Acad::eOk)
            throw std::runtime_error("cannot open the drawing");
        rusage after{};
        getrusage(RUSAGE_SELF, &after);
        return Cost{processorSeconds(after) - processorSeconds(before),
                    static_cast<double>(after.ru_maxrss) * kBytesPerUnit};
    });
}

template <typename Run>
Cost leastOf(int runs, const Run& run) {
    Cost least = run();
    for (int i = 1; i < runs; ++i) {
        const Cost cost = run();
        least.seconds = std::min(least.seconds, cost.seconds);
        least.peakBytes = std::min(least.peakBytes, cost.peakBytes);
    }
    return least;
}

void print(const std::string& what, const Cost& cost, const Cost& save, int elements, double bytes) {
    std::printf("  %-20s %8.1f ms %6.2f us each %6.2f times save %6.2f times the file\n", what.c_str(),
                cost.seconds * 1e3, cost.seconds * 1e6 / elements, cost.seconds / save.seconds,
                cost.peakBytes / bytes);
    std::fflush(stdout);
}

void writeDrawing(const std::string& path, int elements, Design design) {
    inOwnProcess([&] { return timed([&] { writeNetwork(zuhost::fromUtf8(path), elements, design); }); });
}

void benchmark(const fs::path& folder, int elements) {
    const std::string drawing = folder / "network.dxf";
    const std::string saved = folder / "saved.dxf";
    const std::string picture = folder / "plan.png";
    const std::vector<std::vector<std::string>> commands{{"elements", drawing},
                                                         {"elements", "--json", drawing},
                                                         {"elements", "--csv", drawing},
                                                         {"connected", "--all", drawing},
                                                         {"connected", "--all", "--json", drawing},
                                                         {"check", drawing},
                                                         {"quantities", drawing},
                                                         {"plan", drawing, "-o", picture}};
    writeDrawing(drawing, elements, Design::sound);
    const auto bytes = static_cast<double>(fs::file_size(drawing));
    const int runs = elements > 100'000 ? 1 : 5;
    std::printf("%d elements, %.1f MB\n", elements, bytes * 1e-6);
    const Cost save = leastOf(runs, [&] { return costOf({"save", drawing, "-o", saved}); });
    print("open (as a library)", leastOf(runs, [&] { return costOfOpening(drawing); }), save, elements,
          bytes);
    print("save", save, save, elements, bytes);
    for (const std::vector<std::string>& command : commands) {
        std::string what;
        for (const std::string& word : command)
            if (word != drawing && word != "-o" && word != picture)
                what += (what.empty() ? "" : " ") + word;
        print(what, leastOf(runs, [&] { return costOf(command); }), save, elements, bytes);
    }
    writeDrawing(drawing, elements, Design::faulty);
    print("check, many findings",
          leastOf(runs,
                  [&] {
                      return costOf({"check", drawing});
                  }),
          save, elements, bytes);
}

} // namespace

/// The argument is the greatest number of elements; 100,000 by default.
int main(int argc, char** argv) {
    const int greatest = argc > 1 ? std::atoi(argv[1]) : 100'000;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const fs::path folder = fs::absolute("bench-commands-" + std::to_string(getpid()));
    fs::create_directories(folder);
    for (int elements = 1000; elements <= greatest; elements *= 10)
        benchmark(folder, elements);
    fs::remove_all(folder);
    return 0;
}
