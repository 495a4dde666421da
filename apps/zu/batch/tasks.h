#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace zu::app {

/// A run of this program.
struct Task {
    std::vector<std::string> arguments;
    bool readsInput = false; ///< From the standard input, which is empty for others.
};

struct TaskResult {
    int status = 0;
    bool crashed = false;
    std::string output;
    std::string errors; ///< What it wrote to the standard error.
};

/// What is called as tasks end.
struct TaskObserver {
    /// In the order of the tasks.
    std::function<void(std::size_t index, const TaskResult& result)> finished;
    /// Whenever tasks have ended, with the number of those that have.
    std::function<void(std::size_t done)> counted;
};

/// Runs each task in a process of its own, `jobs` at a time, so that one that crashes harms no other.
void runTasks(std::span<const Task> tasks, int jobs, const TaskObserver& observer);

} // namespace zu::app
