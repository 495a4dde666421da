#pragma once

#include <functional>
#include <memory>

/// The memory that a task keeps; released after its time has been measured.
using Held = std::shared_ptr<const void>;
using Task = std::function<Held()>;

struct Measure {
    double firstSeconds = 0; ///< Time of the first run, which uses memory that is new to the process.
    double seconds = 0;      ///< Time of the fastest run.
    double peakBytes = 0;    ///< Peak memory of the first run, beyond the process's own.
    double keptBytes = 0;    ///< Memory kept after the first run, without pages of files.
};

/// Runs a task several times in its own process, so that its memory can be measured.
Measure measure(int runs, const Task& task);
