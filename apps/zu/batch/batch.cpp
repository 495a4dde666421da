#include "batch/batch.h"

#include "batch/drawing_list.h"
#include "batch/results.h"
#include "failure.h"
#include "model/save_options.h"
#include "model/standard_streams.h"

#include <zuhost/platform/paths.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <memory>
#include <thread>

namespace zu::app {

namespace {

using zuhost::platform::pathOf;

constexpr std::string_view kName = "{}";
constexpr const char* kDrawings = "Drawings and folders of drawings; - reads standard input";
constexpr std::array<std::string_view, 3> kOutputs{"--output", "--preview", "--screenshot"};
constexpr std::array<std::string_view, 2> kOwnOptions{"--recursive", "--jobs"};

bool isOutput(const GivenOption& option) {
    return std::find(kOutputs.begin(), kOutputs.end(), option.name) != kOutputs.end();
}

bool isOwn(const GivenOption& option) {
    return std::find(kOwnOptions.begin(), kOwnOptions.end(), option.name) != kOwnOptions.end();
}

/// Whether the call is for one drawing by its form, not by what a folder holds at the moment.
bool isSingle(const DrawingBatch& batch) {
    std::error_code unknown;
    return batch.operands.size() == 1 &&
           !std::filesystem::is_directory(pathOf(batch.operands.front()), unknown);
}

bool hasNamePlace(const GivenOption& output) {
    return output.values.front().find(kName) != std::string::npos;
}

void requireNamePlace(const GivenOption& option) {
    const bool isFolder = option.takesFolder && namesFolder(option.values.front());
    if (!hasNamePlace(option) && !isFolder)
        throw WrongUsage(option.values.front() + ": with several drawings an output needs " +
                         std::string(kName) + " where the drawing's name goes, such as out/{}.dxf" +
                         (option.takesFolder ? ", or to be a folder" : ""));
}

void requireDifferentNames(const std::vector<ListedDrawing>& drawings) {
    std::map<std::string_view, const ListedDrawing*> seen;
    for (const ListedDrawing& drawing : drawings) {
        const auto [other, isNew] = seen.emplace(drawing.name, &drawing);
        if (!isNew)
            throw WrongUsage(other->second->path + " and " + drawing.path + " would have the same output");
    }
}

void requireOutputs(const std::vector<GivenOption>& options, const std::vector<ListedDrawing>& drawings) {
    if (std::none_of(options.begin(), options.end(), isOutput))
        return;
    for (const GivenOption& option : options)
        if (isOutput(option))
            requireNamePlace(option);
    requireDifferentNames(drawings);
}

/// The output of a drawing, in a folder that exists.
std::string outputOf(const GivenOption& option, const ListedDrawing& drawing) {
    std::string pattern = option.values.front();
    if (option.takesFolder && !hasNamePlace(option) && namesFolder(pattern))
        pattern += '/' + std::string(kName) + zuhost::platform::textOf(pathOf(drawing.path).extension());
    for (std::size_t at = 0; (at = pattern.find(kName, at)) != std::string::npos; at += drawing.name.size())
        pattern.replace(at, kName.size(), drawing.name);
    std::error_code failed; // Saving reports what is wrong with the folder.
    std::filesystem::create_directories(pathOf(pattern).parent_path(), failed);
    return pattern;
}

void append(const GivenOption& option, const ListedDrawing& drawing, std::vector<std::string>& arguments) {
    if (option.values.empty())
        arguments.push_back(option.name);
    for (const std::string& value : option.values) {
        const std::string given = isOutput(option) ? outputOf(option, drawing) : value;
        if (!given.empty()) {
            arguments.push_back(option.name + '=' + given);
            continue;
        }
        arguments.push_back(option.name);
        arguments.push_back(given);
    }
}

Task taskOf(const Command& command, const std::vector<GivenOption>& options, const ListedDrawing& drawing) {
    Task task{command.path(), drawing.path == kStandardStream};
    for (const GivenOption& option : options)
        if (!isOwn(option))
            append(option, drawing, task.arguments);
    task.arguments.emplace_back("--");
    task.arguments.push_back(drawing.path);
    const std::vector<std::string> last = command.lastArguments();
    task.arguments.insert(task.arguments.end(), last.begin(), last.end());
    return task;
}

std::vector<Task> tasksOf(const Command& command, const std::vector<GivenOption>& options,
                          const std::vector<ListedDrawing>& drawings) {
    std::vector<Task> tasks;
    tasks.reserve(drawings.size());
    for (const ListedDrawing& drawing : drawings)
        tasks.push_back(taskOf(command, options, drawing));
    return tasks;
}

ResultForm formOf(const std::vector<GivenOption>& options) {
    const auto has = [&](std::string_view name) {
        return std::any_of(options.begin(), options.end(),
                           [name](const GivenOption& option) { return option.name == name; });
    };
    return has("--json") ? ResultForm::json : has("--csv") ? ResultForm::csv : ResultForm::text;
}

int processors() {
    return static_cast<int>(std::max(std::thread::hardware_concurrency(), 1U));
}

void runAll(const Command& command, const DrawingBatch& batch) {
    const std::vector<ListedDrawing> drawings = listDrawings(batch.operands, batch.descends);
    const std::vector<GivenOption> options = command.givenOptions();
    requireOutputs(options, drawings);
    const std::vector<Task> tasks = tasksOf(command, options, drawings);
    ResultPrinter printer(formOf(options), drawings.size());
    runTasks(tasks, batch.jobs,
             {[&](std::size_t i, const TaskResult& result) { printer.print(drawings[i].path, result); },
              [&](std::size_t done) { printer.showProgress(done); }});
    printer.printSummary();
    if (printer.worstStatus() != 0)
        throw EndWithStatus(printer.worstStatus());
}

std::shared_ptr<DrawingBatch> addBatch(Command& command, const DrawingArgument& argument) {
    auto batch = std::make_shared<DrawingBatch>();
    batch->jobs = processors();
    command.add_list(argument.name, batch->operands, argument.description, argument.last);
    command.add_flag("-r,--recursive", batch->descends, "Look into the folders of folders too");
    command
        .add_option("--jobs", batch->jobs,
                    "How many drawings to work on at a time (default: one per processor)")
        ->range(1, 1024);
    return batch;
}

void addStrict(Command& command, DrawingSource& source) {
    command.add_flag("--strict", source.strict, "Reject drawings that would open with warnings");
}

/// Whether each drawing has a result of its own.
bool isSeparate(const Command& command) {
    const std::vector<GivenOption> options = command.givenOptions();
    return formOf(options) == ResultForm::json ||
           std::any_of(options.begin(), options.end(),
                       [](const GivenOption& option) { return isOutput(option) && hasNamePlace(option); });
}

} // namespace

void runForEachFile(Command& command, const DrawingArgument& argument, std::string& path,
                    std::function<void()> run, Collector collector) {
    command.callback([&command, &path, batch = addBatch(command, argument), run = std::move(run),
                      collector = std::move(collector)] {
        if (collector.applies && collector.applies(*batch)) {
            collector.run(*batch);
        } else if (isSingle(*batch)) {
            path = batch->operands.front();
            run();
        } else {
            runAll(command, *batch);
        }
    });
}

void runForEachDrawing(Command& command, DrawingSource& source, std::function<void()> run,
                       const LastArguments& last) {
    runForEachFile(command, {"DRAWING", kDrawings, last}, source.path, std::move(run));
    addStrict(command, source);
}

void runForEachDrawing(Command& command, DrawingSource& source, std::function<void()> run,
                       std::function<void(const DrawingBatch& batch)> collect) {
    const auto applies = [&command](const DrawingBatch& batch) {
        return !isSingle(batch) && !isSeparate(command);
    };
    runForEachFile(command, {"DRAWING", kDrawings}, source.path, std::move(run),
                   {applies, std::move(collect)});
    addStrict(command, source);
}

int collectFromDrawings(const Command& command, const DrawingBatch& batch,
                        const std::vector<std::string>& arguments,
                        const std::function<void(const std::string&, const TaskResult&)>& add) {
    const std::vector<ListedDrawing> drawings = listDrawings(batch.operands, batch.descends);
    std::vector<GivenOption> options = command.givenOptions();
    std::erase_if(options, isOutput);
    for (const std::string& argument : arguments)
        options.push_back({argument, {}});
    const std::vector<Task> tasks = tasksOf(command, options, drawings);
    ResultPrinter printer(ResultForm::none, drawings.size());
    runTasks(tasks, batch.jobs,
             {[&](std::size_t i, const TaskResult& result) {
                  printer.print(drawings[i].path, result);
                  add(drawings[i].path, result);
              },
              [&](std::size_t done) { printer.showProgress(done); }});
    printer.printSummary();
    return printer.worstStatus();
}

} // namespace zu::app
