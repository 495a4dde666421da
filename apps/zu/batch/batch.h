#pragma once

#include "batch/tasks.h"
#include "command_line.h"
#include "model/drawing_file.h"

#include <functional>
#include <string>
#include <vector>

namespace zu::app {

/// The drawings of a call.
struct DrawingBatch {
    std::vector<std::string> operands; ///< Files and folders.
    bool descends = false;
    int jobs = 0; ///< How many at a time.
};

/// The argument of a command that names its drawings.
struct DrawingArgument {
    std::string name;
    std::string description;
    LastArguments last = {};
};

/// What a command does with several drawings at once, in some of its calls.
struct Collector {
    std::function<bool(const DrawingBatch& batch)> applies;
    std::function<void(const DrawingBatch& batch)> run;
};

/// Makes a command one for many drawings: adds an argument that takes several files and folders, with
/// --recursive and --jobs, and sets what the command does. A single file is worked on at once: `path` names
/// it and `run` is called. For a folder, or several, the program runs itself once for each drawing with the
/// other options and arguments of the call, so that a drawing that makes it fail or crash harms no other, and
/// prints what they print in the order given: as text below the drawing's name, with --json as one line a
/// drawing, with --csv as one table with a column for the drawing. Where the collector applies it is called
/// instead, also for a single file.
///
/// Each "{}" in the name of an output stands for the name of the drawing, and a folder, where the option
/// takes one, gets a file of the drawing's name; an output without either would be replaced by each drawing
/// in turn and is wrong usage.
void runForEachFile(Command& command, const DrawingArgument& argument, std::string& path,
                    std::function<void()> run, Collector collector = {});

/// The same for drawings that are opened as a whole: adds DRAWING, the arguments that follow it, and
/// --strict.
void runForEachDrawing(Command& command, DrawingSource& source, std::function<void()> run,
                       const LastArguments& last = {});

/// The same for a command that makes one output of what its runs for several drawings print. For a single
/// file, with --json, and with "{}" in the name of the output each drawing is worked on as above; otherwise
/// `collect` is called.
void runForEachDrawing(Command& command, DrawingSource& source, std::function<void()> run,
                       std::function<void(const DrawingBatch& batch)> collect);

/// Runs the program for each drawing with further arguments and without an output, calls `add` with what each
/// run prints, in the order given, and returns the worst status.
[[nodiscard]] int
collectFromDrawings(const Command& command, const DrawingBatch& batch,
                    const std::vector<std::string>& arguments,
                    const std::function<void(const std::string& drawing, const TaskResult& result)>& add);

} // namespace zu::app
