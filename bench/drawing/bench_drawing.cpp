// Opens and saves whole drawings of 1, 10 and 100 MB, compared with dxflib only reading the same file. Each
// task runs in its own process, so that its peak memory can be measured. Arguments: a folder for the drawings
// and other sizes in MB, as 1000.
#include "own_process.h"
#include "plan_generator.h"

#include "dbents.h"
#include "dbobjptr.h"
#include "drawing/document.h"
#include "zuhost/paths.h"
#include <zuhost/names.h>

#include <algorithm>
#include <cstdio>
#include <dl_creationadapter.h>
#include <dl_dxf.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <malloc.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

using namespace zuhost;
namespace fs = std::filesystem;

namespace {

constexpr std::uint64_t kTinyBytes = 10000;

struct Measure {
    double seconds = 0;
    double peakBytes = 0; ///< Peak memory beyond what the process used before the task.
};

/// Processes the drawing at a path and returns the seconds of the measured part.
using Task = std::function<double(const std::string&)>;

/// Returns the memory of this process in bytes: "VmRSS" is the current value, "VmHWM" the peak.
double memory(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(name + ":"))
            return std::stod(line.substr(name.size() + 1)) * 1024;
    throw std::runtime_error("/proc/self/status does not list " + name);
}

/// Resets "VmHWM".
void resetPeak() {
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << "5";
}

/// Runs the task in its own process, first on a drawing of a few objects: the pages of libraries are then
/// loaded and do not count.
Measure runInChild(const Task& task, const std::string& path, const std::string& tinyPath) {
    return inOwnProcess([&] {
        task(tinyPath);
        resetPeak();
        Measure measure;
        const double before = memory("VmRSS");
        measure.seconds = task(path);
        measure.peakBytes = memory("VmHWM") - before;
        return measure;
    });
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

double openDocument(const std::string& path) {
    std::unique_ptr<Document> document;
    return timed([&] { document = openDrawing(path); });
}

using Chain = std::unique_ptr<resbuf, int (*)(resbuf*)>;

/// Returns the insertion point of a reference, the first point of other entities.
AcGePoint3d positionOf(const AcDbObject& object) {
    if (const auto* const reference = AcDbBlockReference::cast(&object))
        return reference->position();
    if (const auto* const line = AcDbLine::cast(&object))
        return line->startPoint();
    if (const auto* const text = AcDbText::cast(&object))
        return text->position();
    AcGePoint2d first;
    if (const auto* const polyline = AcDbPolyline::cast(&object))
        polyline->getPointAt(0, first);
    return {first.x, first.y, 0};
}

/// Opens an object and reads what is asked of most: class, layer, handle, owner, extended data, position.
/// Returns a sum of them.
double readObject(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbObject> object(id);
    if (object.openStatus() != Acad::eOk)
        throw std::runtime_error("an object does not open");
    double sum = object->isA() == AcDbLine::desc() ? 1 : 0;
    sum += static_cast<double>(object->getAcDbHandle().value() + object->ownerId().handle().value());
    if (const auto* const entity = AcDbEntity::cast(object.object()))
        sum += static_cast<double>(zuhost::layerName(*entity).size());
    const Chain values(object->xData(), &acutRelRb);
    for (const resbuf* value = values.get(); value != nullptr; value = value->rbnext)
        sum += value->restype;
    const AcGePoint3d position = positionOf(*object);
    return sum + position.x + position.y + position.z;
}

/// Opens the drawing as a database; with `everyObject` also opens and reads all its objects.
double openDatabase(const std::string& path, bool everyObject) {
    AcDbDatabase database(false);
    double sum = 0;
    const double seconds = timed([&] {
        if (database.dxfIn(hostPath(path).c_str()) != Acad::eOk)
            throw std::runtime_error("cannot open " + path);
        AcDbObjectId id;
        for (Adesk::UInt64 handle = kFirstPlanHandle;
             everyObject && database.getAcDbObjectId(id, false, AcDbHandle(handle)) == Acad::eOk; ++handle)
            sum += readObject(id);
    });
    return everyObject && sum == 0 ? 0 : seconds;
}

/// Changes the last value of an object's extended data, a number.
void changeLastValue(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite);
    const Chain values(object->xData(), &acutRelRb);
    resbuf* last = values.get();
    while (last->rbnext != nullptr)
        last = last->rbnext;
    last->resval.rreal += 1;
    if (object->setXData(values.get()) != Acad::eOk)
        throw std::runtime_error("extended data cannot be set");
}

/// Opens the drawing as a database, reads the extended data of every object, changes that of one in a hundred
/// and saves.
double editDatabase(const std::string& path) {
    AcDbDatabase database(false);
    const std::string target = path + ".saved";
    const double seconds = timed([&] {
        if (database.dxfIn(hostPath(path).c_str()) != Acad::eOk)
            throw std::runtime_error("cannot open " + path);
        AcDbObjectId id;
        std::uint64_t elements = 0;
        for (Adesk::UInt64 handle = kFirstPlanHandle;
             database.getAcDbObjectId(id, false, AcDbHandle(handle)) == Acad::eOk; ++handle) {
            const bool isElement = Chain(AcDbObjectPointer<AcDbObject>(id)->xData(), &acutRelRb) != nullptr;
            if (isElement && ++elements % 100 == 0)
                changeLastValue(id);
        }
        if (database.dxfOut(hostPath(target).c_str()) != Acad::eOk)
            throw std::runtime_error("cannot save " + target);
    });
    fs::remove(target);
    return seconds;
}

double saveDocument(const std::string& path, DrawingForm form, bool changed) {
    const auto document = openDrawing(path);
    const Container& entities = document->container(Container::Kind::entities);
    TagList tags;
    // One object in a hundred is written from its tags.
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

/// Writes a drawing of about that size in another process, whose memory does not count; returns its path.
std::string writtenPlan(const fs::path& folder, std::uint64_t bytes) {
    std::string path = folder / (std::to_string(bytes) + ".dxf");
    const pid_t child = fork();
    if (child == 0) {
        writePlan(path, bytes);
        _exit(0);
    }
    waitpid(child, nullptr, 0);
    return path;
}

void benchmark(const fs::path& folder, std::uint64_t megabytes) {
    const std::string path = writtenPlan(folder, megabytes * 1000000);
    const std::string tinyPath = writtenPlan(folder, kTinyBytes);
    const auto bytes = static_cast<double>(fs::file_size(path));
    // Reports the fastest run and the highest peak memory of all runs.
    const auto measured = [&](const char* what, int runs, const Task& task) {
        Measure best = runInChild(task, path, tinyPath);
        for (int i = 1; i < runs; ++i) {
            const Measure measure = runInChild(task, path, tinyPath);
            best.seconds = std::min(best.seconds, measure.seconds);
            best.peakBytes = std::max(best.peakBytes, measure.peakBytes);
        }
        print(what, best, bytes);
        return best.seconds;
    };
    const int runs = megabytes < 100 ? 7 : 5;
    std::printf("%llu MB (%.0f bytes)\n", static_cast<unsigned long long>(megabytes), bytes);
    const double dxflib = measured("dxflib reads", megabytes < 100 ? 3 : 1, readWithDxflib);
    const double open = measured("open", runs, openDocument);
    measured("open as a database", runs, [](const std::string& file) { return openDatabase(file, false); });
    measured("... and every object read", runs,
             [](const std::string& file) { return openDatabase(file, true); });
    measured("... 1 of 100 changed, saved", 3, editDatabase);
    const double save = measured("save unedited", runs, [](const std::string& file) {
        return saveDocument(file, DrawingForm::ascii, false);
    });
    measured("save, 1 of 100 changed", runs,
             [](const std::string& file) { return saveDocument(file, DrawingForm::ascii, true); });
    measured("save as binary", runs,
             [](const std::string& file) { return saveDocument(file, DrawingForm::binary, false); });
    std::printf("  open is %.1f times as fast as dxflib; save takes %.2f of open\n", dxflib / open,
                save / open);
    fs::remove(path);
}

} // namespace

int main(int argc, char** argv) {
    // dxflib converts numbers by the locale and expects "C", the default.
    const fs::path folder =
        fs::path(argc > 1 ? argv[1] : ".") / ("bench-drawing-" + std::to_string(getpid()));
    fs::create_directories(folder);
    std::vector<std::uint64_t> sizes{1, 10, 100};
    if (argc > 2) {
        sizes.clear();
        std::transform(argv + 2, argv + argc, std::back_inserter(sizes),
                       [](const char* size) { return std::stoull(size); });
    }
    for (const std::uint64_t megabytes : sizes)
        benchmark(folder, megabytes);
    fs::remove_all(folder);
    return 0;
}
