#include "batch/batch.h"

#include "batch/drawing_list.h"
#include "batch/results.h"
#include "command_line.h"
#include "failure.h"
#include "model/standard_streams.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <memory>
#include <thread>

namespace zu::app {

namespace {

constexpr std::string_view kName = "{}";
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
    return batch.operands.size() == 1 && !std::filesystem::is_directory(batch.operands.front(), unknown);
}

void requireNamePlace(const GivenOption& option) {
    if (option.values.front().find(kName) == std::string::npos)
        throw WrongUsage(option.values.front() + ": with several drawings an output needs " +
                         std::string(kName) + " where the drawing's name goes, such as out/{}.dxf");
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
std::string outputOf(std::string pattern, const ListedDrawing& drawing) {
    for (std::size_t at = 0; (at = pattern.find(kName, at)) != std::string::npos; at += drawing.name.size())
        pattern.replace(at, kName.size(), drawing.name);
    std::error_code failed; // Saving reports what is wrong with the folder.
    std::filesystem::create_directories(std::filesystem::path(pattern).parent_path(), failed);
    return pattern;
}

void append(const GivenOption& option, const ListedDrawing& drawing, std::vector<std::string>& arguments) {
    if (option.values.empty())
        arguments.push_back(option.name);
    for (const std::string& value : option.values) {
        const std::string given = isOutput(option) ? outputOf(value, drawing) : value;
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
    if (!task.readsInput)
        task.arguments.emplace_back("--");
    task.arguments.push_back(drawing.path);
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

std::shared_ptr<DrawingBatch> addDrawings(Command& command, DrawingSource& source) {
    auto batch = std::make_shared<DrawingBatch>();
    batch->jobs = processors();
    command
        .add_option("DRAWING", batch->operands, "Drawings and folders of drawings; - reads standard input")
        ->required();
    command.add_flag("-r,--recursive", batch->descends, "Look into the folders of folders too");
    command
        .add_option("--jobs", batch->jobs,
                    "How many drawings to work on at a time (default: one per processor)")
        ->range(1, 1024);
    command.add_flag("--strict", source.strict, "Reject drawings that would open with warnings");
    return batch;
}

/// Whether each drawing has a result of its own.
bool isSeparate(const Command& command) {
    const std::vector<GivenOption> options = command.givenOptions();
    return formOf(options) == ResultForm::json ||
           std::any_of(options.begin(), options.end(), [](const GivenOption& option) {
               return isOutput(option) && option.values.front().find(kName) != std::string::npos;
           });
}

} // namespace

void runForEachDrawing(Command& command, DrawingSource& source, std::function<void()> run) {
    runForEachDrawing(command, source, std::move(run), nullptr);
}

void runForEachDrawing(Command& command, DrawingSource& source, std::function<void()> run,
                       std::function<void(const DrawingBatch& batch)> collect) {
    command.callback([&command, &source, batch = addDrawings(command, source), run = std::move(run),
                      collect = std::move(collect)] {
        if (isSingle(*batch)) {
            source.path = batch->operands.front();
            run();
        } else if (collect && !isSeparate(command)) {
            collect(*batch);
        } else {
            runAll(command, *batch);
        }
    });
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
