// Opening and saving whole drawings of 1, 10 and 100 MB, next to dxflib merely reading the same file. Each
// task runs in a process of its own, so that its peak memory is its own as well.
#include "plan_generator.h"

#include "dbmain.h"
#include "dbobjptr.h"
#include "drawing/document.h"
#include "zuhost/paths.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <dl_creationadapter.h>
#include <dl_dxf.h>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace zuhost;
namespace fs = std::filesystem;

namespace {

struct Measure {
    double seconds = 0;
    double peakBytes = 0; ///< Most memory at any time, beyond what the program and its libraries take.
};

/// What a task times itself; nothing else counts.
using Task = std::function<double()>;

double timed(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double peakOfProcess() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024;
}

Measure runInChild(const Task& task) {
    int ends[2];
    if (pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0) {
        Measure measure;
        const double before = peakOfProcess();
        measure.seconds = task();
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

/// The quickest of some runs, with the most memory of any.
Measure best(const Task& task, int runs) {
    Measure result = runInChild(task);
    for (int i = 1; i < runs; ++i) {
        const Measure measure = runInChild(task);
        result.seconds = std::min(result.seconds, measure.seconds);
        result.peakBytes = std::max(result.peakBytes, measure.peakBytes);
    }
    return result;
}

std::unique_ptr<Document> openDrawing(const std::string& path) {
    auto result = Document::openFile(hostPath(path), nullptr);
    if (std::holds_alternative<DocumentError>(result))
        throw std::runtime_error("cannot open " + path);
    return std::move(std::get<std::unique_ptr<Document>>(result));
}

double readWithDxflib(const std::string& path) {
    return timed([&] {
        DL_CreationAdapter nothing;
        DL_Dxf reader;
        if (!reader.in(path, &nothing))
            throw std::runtime_error("dxflib cannot read " + path);
    });
}

double openIt(const std::string& path) {
    std::unique_ptr<Document> document;
    return timed([&] { document = openDrawing(path); });
}

/// Opens as a database, as programs do; with `everyObject` builds all its objects too.
double openDatabase(const std::string& path, bool everyObject) {
    AcDbDatabase database(false);
    return timed([&] {
        if (database.dxfIn(hostPath(path).c_str()) != Acad::eOk)
            throw std::runtime_error("cannot open " + path);
        AcDbObjectId id;
        for (Adesk::UInt64 handle = firstPlanHandle;
             everyObject && database.getAcDbObjectId(id, false, AcDbHandle(handle)) == Acad::eOk; ++handle)
            if (AcDbObjectPointer<AcDbObject>(id).openStatus() != Acad::eOk)
                throw std::runtime_error("an object does not open");
    });
}

double saveIt(const std::string& path, DrawingForm form, bool changed) {
    const auto document = openDrawing(path);
    const Container& entities = document->container(Container::Kind::entities);
    TagList tags;
    // One object of a hundred is written from its tags.
    std::uint64_t count = 0;
    const auto source = [&](const AcDbStub& stub) -> const TagList* {
        if (!changed || ++count % 100 != 0)
            return nullptr;
        tags = document->tags(stub);
        return &tags;
    };
    const std::string target = path + ".saved";
    const double seconds = timed([&] {
        if (document->save(hostPath(target), form, source))
            throw std::runtime_error("cannot save " + target);
    });
    fs::remove(target);
    return entities.members.empty() ? 0 : seconds;
}

void print(const char* what, const Measure& measure, double bytes) {
    std::printf("  %-28s %9.1f ms  %7.1f MB/s  peak memory %5.2f x size\n", what, measure.seconds * 1e3,
                bytes / measure.seconds / 1e6, measure.peakBytes / bytes);
}

void benchmark(const fs::path& folder, std::uint64_t megabytes) {
    const std::string path = folder / (std::to_string(megabytes) + ".dxf");
    runInChild([&] { return timed([&] { writePlan(path, megabytes * 1000000); }); });
    const auto bytes = static_cast<double>(fs::file_size(path));
    const int runs = megabytes < 100 ? 7 : 5;
    std::printf("%llu MB (%.0f bytes)\n", static_cast<unsigned long long>(megabytes), bytes);
    const Measure dxflib = best([&] { return readWithDxflib(path); }, megabytes < 100 ? 3 : 1);
    const Measure open = best([&] { return openIt(path); }, runs);
    const Measure database = best([&] { return openDatabase(path, false); }, runs);
    const Measure every = best([&] { return openDatabase(path, true); }, 3);
    const Measure save = best([&] { return saveIt(path, DrawingForm::ascii, false); }, runs);
    const Measure edited = best([&] { return saveIt(path, DrawingForm::ascii, true); }, runs);
    const Measure binary = best([&] { return saveIt(path, DrawingForm::binary, false); }, runs);
    print("dxflib reads", dxflib, bytes);
    print("open", open, bytes);
    print("open as a database", database, bytes);
    print("... and every object of it", every, bytes);
    print("save unedited", save, bytes);
    print("save, 1 of 100 changed", edited, bytes);
    print("save as binary", binary, bytes);
    std::printf("  open is %.1f times as fast as dxflib; save takes %.2f of open\n",
                dxflib.seconds / open.seconds, save.seconds / open.seconds);
    fs::remove(path);
}

} // namespace

int main(int argc, char** argv) {
    // dxflib converts numbers by the locale; "C" is what it expects.
    const fs::path folder =
        fs::path(argc > 1 ? argv[1] : ".") / ("bench-drawing-" + std::to_string(getpid()));
    fs::create_directories(folder);
    for (const std::uint64_t megabytes : {1U, 10U, 100U})
        benchmark(folder, megabytes);
    fs::remove_all(folder);
    return 0;
}
