#pragma once

#include <chrono>
#include <stdexcept>
#include <sys/wait.h>
#include <type_traits>
#include <unistd.h>

/// Returns the seconds that the work takes.
template <typename Work>
double timed(const Work& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Runs the task in its own process, so that its memory can be measured, and returns its result. Throws
/// std::runtime_error when the task fails.
template <typename Task>
auto inOwnProcess(const Task& task) {
    using Result = decltype(task());
    static_assert(std::is_trivially_copyable_v<Result>);
    int ends[2];
    if (pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0) {
        const Result result = [&]() noexcept {
            return task();
        }(); // an exception must not unwind into the caller's handlers in the child
        _exit(write(ends[1], &result, sizeof result) == sizeof result ? 0 : 1);
    }
    close(ends[1]); // otherwise read() would block when the child fails
    Result result;
    const ssize_t got = read(ends[0], &result, sizeof result);
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (got != sizeof result || status != 0)
        throw std::runtime_error("a task failed");
    return result;
}
