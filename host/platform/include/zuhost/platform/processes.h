#pragma once

#include "files.h"

#include <zuhost/platform/export.h>

#include <cstdint>
#include <string>
#include <vector>

namespace zuhost::platform {

/// A running child process. The caller reads and closes both pipes, then waits for the process.
struct Process {
    std::intptr_t id = 0;
    FileHandle output = kNoFile; ///< What it writes to the standard output, read with `readFile`.
    FileHandle errors = kNoFile; ///< What it writes to the standard error.
};

struct ProcessEnd {
    int status = 0;
    bool crashed = false;
};

/// Starts a program. Its standard input is this process's, or empty. Arguments are UTF-8, without the
/// program's name.
ZUHOST_API int startProcess(const std::string& program, const std::vector<std::string>& arguments,
                            bool readsInput, Process& process);
/// Ends the process at once; it counts as crashed. Call it before `waitForProcess` only.
ZUHOST_API void killProcess(const Process& process);
/// Waits for the end and releases what the system keeps of the process.
ZUHOST_API ProcessEnd waitForProcess(const Process& process);

} // namespace zuhost::platform
