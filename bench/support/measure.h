#pragma once

#include <functional>
#include <memory>

/// What a task holds when it is done; it is given back when its time has been taken.
using Held = std::shared_ptr<const void>;
using Task = std::function<Held()>;

struct Measure {
    double firstSeconds = 0; ///< Of the first run, on memory new to the process.
    double seconds = 0;      ///< Of the quickest run.
    double peakBytes = 0;    ///< Most memory in the first run, beyond the program's own.
    double keptBytes = 0;    ///< Memory after the first run, beyond what was before.
};

/// Runs a task some times in a process of its own, so that its memory is its own.
Measure measure(int runs, const Task& task);
