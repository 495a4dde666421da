// Saving link information where processes fork, and files have modes and symbolic links.
#include "link_info_fixture.h"

#include <zuhost/file_ops.h>

#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace file_ops = zuhost::file_ops;

class PosixLinkInfo : public LinkInfo {};

TEST_F(PosixLinkInfo, SavingFollowsLinksAndKeepsPermissions) {
    namespace fs = std::filesystem;
    const auto ownerOnly = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(folder_.write("real", kOld), ownerOnly);
    fs::create_symlink("real", folder_.file("links.lif"));
    ASSERT_TRUE(save());
    EXPECT_EQ(read("real"), kNew);
    EXPECT_EQ(read("links.bak"), kOld);
    EXPECT_TRUE(fs::is_symlink(folder_.file("links.lif")));
    EXPECT_FALSE(fs::is_symlink(folder_.file("links.bak")));
    for (const char* const name : {"real", "links.bak"})
        EXPECT_EQ(fs::status(folder_.file(name)).permissions(), ownerOnly) << name;
}

// The process is ended before each file operation in turn.
TEST_F(PosixLinkInfo, EndingTheProcessNeverLosesTheFile) {
    bool finished = false;
    for (int n = 1; !finished; ++n) {
        ASSERT_LT(n, 100);
        restart();
        const pid_t child = fork();
        if (child == 0) {
            int count = 0;
            const file_ops::Interception killer([&](file_ops::Operation, const std::string&) {
                if (++count == n)
                    _exit(1);
                return 0;
            });
            _exit(save() ? 0 : 2);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        finished = WEXITSTATUS(status) == 0;
        const std::string now = read("links.lif");
        EXPECT_TRUE(now == kNew || (!finished && now == kOld)) << n << now;
    }
}

} // namespace
