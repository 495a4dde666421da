// A save that is killed at any point leaves the old file or the new one. The tests fork.
#include "save_failure_fixture.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

using namespace zuhost;
namespace fs = std::filesystem;

class SaveKilled : public SaveFailure {};

TEST_F(SaveKilled, AtAnyOperationLeavesAWholeFile) {
    bool finished = false;
    for (int n = 1; n < 100 && !finished; ++n) {
        writeOld();
        const pid_t child = fork();
        if (child == 0) {
            int seen = 0;
            const file_ops::Interception interception([&](file_ops::Operation, const std::string&) {
                if (++seen == n)
                    raise(SIGKILL);
                return 0;
            });
            const auto error = document_->save(path(), DrawingForm::ascii, nullptr);
            _exit(error ? 1 : 0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        finished = WIFEXITED(status) && WEXITSTATUS(status) == 0;
        const std::string now = onDisk();
        ASSERT_TRUE(now == newBytes_ || (!finished && now == oldBytes_)) << "operation " << n;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder_.path()))
            fs::remove(entry.path()); // temporary files of killed processes
    }
    EXPECT_TRUE(finished);
}
