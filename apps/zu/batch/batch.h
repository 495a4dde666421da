#pragma once

#include "batch/tasks.h"
#include "model/drawing_file.h"

#include <functional>
#include <string>
#include <vector>

namespace zu::app {

class Command;

/// The drawings of a call.
struct DrawingBatch {
    std::vector<std::string> operands; ///< Files and folders.
    bool descends = false;
    int jobs = 0; ///< How many at a time.
};

/// Makes a command one for many drawings: adds the argument DRAWING, which takes several files and folders,
/// with --recursive, --jobs and --strict, and sets what the command does. A single file is worked on at once:
/// `source` names it and `run` is called. For a folder, or several, the program runs itself once for each
/// drawing with the other options of the call, so that a drawing that makes it fail or crash harms no other,
/// and prints what they print in the order given: as text below the drawing's name, with --json as one line a
/// drawing, with --csv as one table with a column for the drawing.
///
/// Each "{}" in the name of an output stands for the name of the drawing; an output without it would be
/// replaced by each drawing in turn and is wrong usage.
void runForEachDrawing(Command& command, DrawingSource& source, std::function<void()> run);

/// The same for a command that makes one output of what its runs for several drawings print. With --json, or
/// "{}" in the name of the output, each drawing is worked on as above; otherwise `collect` is called.
void runForEachDrawing(Command& command, DrawingSource& source, std::function<void()> run,
                       std::function<void(const DrawingBatch& batch)> collect);

/// Runs the program for each drawing with further arguments and without an output, calls `add` with what each
/// run prints, in the order given, and returns the worst status.
[[nodiscard]] int
collectFromDrawings(const Command& command, const DrawingBatch& batch,
                    const std::vector<std::string>& arguments,
                    const std::function<void(const std::string& drawing, const TaskResult& result)>& add);

} // namespace zu::app
