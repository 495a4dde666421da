#include "batch/tasks.h"

#include "failure.h"

#include <zuhost/platform/libraries.h>
#include <zuhost/platform/processes.h>
#include <zuhost/system_error.h>

#include <algorithm>
#include <array>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <string_view>
#include <thread>
#include <utility>

namespace zu::app {

namespace {

namespace platform = zuhost::platform;

std::string readToEnd(platform::FileHandle pipe) {
    std::string text;
    std::array<char, std::size_t{1} << 16U> buffer{};
    for (std::size_t done = buffer.size(); done == buffer.size();) {
        if (platform::readFile(pipe, buffer.data(), buffer.size(), done) != 0)
            break;
        text += std::string_view(buffer.data(), done);
    }
    platform::closeFile(pipe);
    return text;
}

/// The processes that can be ended; those that have closed their pipes end by themselves.
class RunningProcesses {
public:
    /// Returns false, with nothing started, once `endAll` was called.
    bool start(const Task& task, platform::Process& process, int& error) {
        const std::lock_guard lock(mutex_);
        if (isOver_)
            return false;
        error = platform::startProcess(platform::programFile(), task.arguments, task.readsInput, process);
        if (error == 0)
            running_.push_back(process);
        return true;
    }
    /// Called before the process is waited for: its number may be given to another one then.
    void release(const platform::Process& process) {
        const std::lock_guard lock(mutex_);
        std::erase_if(running_, [&](const platform::Process& p) { return p.id == process.id; });
    }
    void endAll() {
        const std::lock_guard lock(mutex_);
        isOver_ = true;
        std::for_each(running_.begin(), running_.end(), platform::killProcess);
    }

private:
    std::mutex mutex_;
    std::vector<platform::Process> running_;
    bool isOver_ = false;
};

/// Nullopt when the tasks are over.
std::optional<TaskResult> runTask(const Task& task, RunningProcesses& processes) {
    platform::Process process;
    int error = 0;
    if (!processes.start(task, process, error))
        return std::nullopt;
    if (error != 0)
        return TaskResult{Failure::kStatus, false, {}, zuhost::errorText(error) + '\n'};
    TaskResult result;
    std::jthread errors([&] { result.errors = readToEnd(process.errors); });
    result.output = readToEnd(process.output);
    errors.join();
    processes.release(process);
    const auto [status, crashed] = platform::waitForProcess(process);
    result.status = crashed ? Failure::kStatus : status;
    result.crashed = crashed;
    return result;
}

/// Threads run the tasks; the observer is called on the caller's thread.
class TaskRunner {
public:
    explicit TaskRunner(std::span<const Task> tasks) : tasks_(tasks), results_(tasks.size()) {}
    ~TaskRunner() {
        processes_.endAll();
        for (std::thread& thread : threads_)
            thread.join();
    }
    TaskRunner(const TaskRunner&) = delete;
    TaskRunner& operator=(const TaskRunner&) = delete;

    void run(int jobs, const TaskObserver& observer) {
        const std::size_t count = std::min(static_cast<std::size_t>(std::max(jobs, 1)), tasks_.size());
        for (std::size_t i = 0; i < count; ++i)
            threads_.emplace_back([this] { work(); });
        std::size_t delivered = 0;
        for (std::size_t done = 0; done < tasks_.size();) {
            done = waitForMore(done);
            while (const std::optional<TaskResult> result = take(delivered))
                observer.finished(delivered++, *result);
            observer.counted(done);
        }
    }

private:
    void work() {
        try {
            while (const std::optional<std::size_t> index = next()) {
                std::optional<TaskResult> result = runTask(tasks_[*index], processes_);
                if (!result)
                    return;
                const std::lock_guard lock(mutex_);
                results_[*index] = std::move(result);
                ++done_;
                changed_.notify_one();
            }
        } catch (...) {
            const std::lock_guard lock(mutex_);
            failure_ = std::current_exception();
            changed_.notify_one();
        }
    }

    std::optional<std::size_t> next() {
        const std::lock_guard lock(mutex_);
        return next_ < tasks_.size() ? std::optional(next_++) : std::nullopt;
    }

    std::size_t waitForMore(std::size_t known) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return done_ > known || failure_; });
        if (failure_)
            std::rethrow_exception(failure_);
        return done_;
    }

    std::optional<TaskResult> take(std::size_t index) {
        const std::lock_guard lock(mutex_);
        return index < results_.size() ? std::exchange(results_[index], std::nullopt) : std::nullopt;
    }

    std::span<const Task> tasks_;
    RunningProcesses processes_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<std::optional<TaskResult>> results_;
    std::size_t next_ = 0;
    std::size_t done_ = 0;
    std::exception_ptr failure_;
    std::vector<std::thread> threads_;
};

} // namespace

void runTasks(std::span<const Task> tasks, int jobs, const TaskObserver& observer) {
    TaskRunner(tasks).run(jobs, observer);
}

} // namespace zu::app
