#include "zuhost/platform/processes.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace zuhost::platform {

namespace {

/// What the child has as its first three files.
class ChildFiles {
public:
    ChildFiles() { posix_spawn_file_actions_init(&actions_); }
    ~ChildFiles() { posix_spawn_file_actions_destroy(&actions_); }
    ChildFiles(const ChildFiles&) = delete;
    ChildFiles& operator=(const ChildFiles&) = delete;

    void openEmptyInput() {
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    }
    void connect(int own, int child) { posix_spawn_file_actions_adddup2(&actions_, own, child); }
    [[nodiscard]] const posix_spawn_file_actions_t* get() const { return &actions_; }

private:
    posix_spawn_file_actions_t actions_{};
};

/// Closes the ends that are not passed on.
struct Pipe {
    Pipe() : error(::pipe2(ends.data(), O_CLOEXEC) == 0 ? 0 : errno) {}
    ~Pipe() {
        for (const int end : ends)
            if (end >= 0)
                ::close(end);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    FileHandle releaseReading() {
        const int reading = ends[0];
        ends[0] = -1;
        return reading;
    }

    std::array<int, 2> ends{-1, -1};
    int error;
};

} // namespace

int startProcess(const std::string& program, const std::vector<std::string>& arguments, bool readsInput,
                 Process& process) {
    Pipe output;
    Pipe errors;
    if (output.error != 0 || errors.error != 0)
        return output.error != 0 ? output.error : errors.error;
    ChildFiles files;
    if (!readsInput)
        files.openEmptyInput();
    files.connect(output.ends[1], STDOUT_FILENO);
    files.connect(errors.ends[1], STDERR_FILENO);
    std::vector<std::string> words{program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> list;
    for (std::string& word : words)
        list.push_back(word.data());
    list.push_back(nullptr);
    pid_t id = 0;
    if (const int error = ::posix_spawn(&id, program.c_str(), files.get(), nullptr, list.data(), environ))
        return error;
    process = {id, output.releaseReading(), errors.releaseReading()};
    return 0;
}

void killProcess(const Process& process) {
    ::kill(static_cast<pid_t>(process.id), SIGKILL);
}

ProcessEnd waitForProcess(const Process& process) {
    int state = 0;
    while (::waitpid(static_cast<pid_t>(process.id), &state, 0) < 0)
        if (errno != EINTR)
            return {0, true};
    return WIFEXITED(state) ? ProcessEnd{WEXITSTATUS(state), false} : ProcessEnd{0, true};
}

} // namespace zuhost::platform
