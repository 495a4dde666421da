// Replacing files where processes fork, files have modes and owners, and pipes have names.
#include "atomic_file_fixture.h"

#include <zuhost/paths.h>
#include <zuhost/texts.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

/// The status that a process ends with.
int statusOf(const std::function<int()>& process) {
    const pid_t child = fork();
    if (child == 0)
        _exit(process());
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

class AtomicPosixFile : public AtomicFile {};

INSTANTIATE_TEST_SUITE_P(WithAndWithoutUnnamedFiles, AtomicPosixFile, testing::Bool());

TEST_P(AtomicPosixFile, KillingTheProcessLeavesOneOfTheTwo) {
    int status = 9;
    for (std::uint64_t n = 1; status == 9; ++n) {
        ASSERT_LT(n, 50U);
        folder.write("f", "old");
        status = statusOf(
            [&] { return replace("new", [n](std::uint64_t at) { return at == n ? _exit(9), 0 : 0; }); });
        const std::string left = TemporaryFolder::read(path);
        EXPECT_TRUE(left == "new" || (left == "old" && status == 9)) << n;
        EXPECT_LE(filesIn(folder), 2U) << n;
    }
    EXPECT_EQ(status, 0);
    EXPECT_EQ(filesIn(folder), 1U) << "a save removes leftovers";
}

TEST_P(AtomicPosixFile, ALimitOfFileSizesIsAnError) {
    EXPECT_EQ(statusOf([&] {
                  const rlimit limit{10, 10};
                  setrlimit(RLIMIT_FSIZE, &limit);
                  return replace("longer than ten bytes");
              }),
              EFBIG);
    EXPECT_EQ(TemporaryFolder::read(path), "old");
    EXPECT_EQ(filesIn(folder), 1U);
}

TEST_P(AtomicPosixFile, FollowsLinksAndKeepsRights) {
    chmod(path.c_str(), 0640);
    fs::create_symlink(path, folder.file("link"));
    EXPECT_EQ(zuhost::replaceFile(folder.file("link"), "new"), 0);
    EXPECT_TRUE(fs::is_symlink(folder.file("link")));
    EXPECT_EQ(TemporaryFolder::read(path), "new");
    struct stat status {};
    stat(path.c_str(), &status);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    fs::create_symlink("made", folder.file("to be made"));
    EXPECT_EQ(zuhost::replaceFile(folder.file("to be made"), "new"), 0);
    EXPECT_TRUE(fs::is_symlink(folder.file("to be made")));
    EXPECT_EQ(TemporaryFolder::read(folder.file("made")), "new");
}

TEST_P(AtomicPosixFile, KeepsOwnerAndGroupWhereAllowed) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only root may give files away";
    const auto rightsAfter = [&](uid_t saver) {
        EXPECT_EQ(chown(path.c_str(), 1234, 4321), 0);
        chmod(path.c_str(), 06757);
        EXPECT_EQ(statusOf([&] { return setgid(saver) != 0 || setuid(saver) != 0 ? EPERM : replace("new"); }),
                  0);
        struct stat status {};
        stat(path.c_str(), &status);
        return std::tuple(status.st_uid, status.st_gid, status.st_mode & 07777U);
    };
    chmod(folder.path().c_str(), 0777);
    EXPECT_EQ(rightsAfter(0), std::tuple(1234U, 4321U, 06757U));
    EXPECT_EQ(rightsAfter(99), std::tuple(99U, 99U, 0777U)) << "no program runs as the new owner";
}

TEST(FileNames, ThatNoFileCanHaveAreErrors) {
    const TemporaryFolder folder;
    fs::create_symlink("b", folder.file("a"));
    fs::create_symlink("a", folder.file("b"));
    const std::pair<std::wstring, int> cases[] = {{L"a", ELOOP},
                                                  {std::wstring(300, L'x'), ENAMETOOLONG},
                                                  {std::wstring(L"c\0d", 3), EILSEQ},
                                                  {L"c\xD800", EILSEQ}};
    for (const auto& [name, error] : cases) {
        const std::string path = zuhost::systemPath(folder.wide("") + name);
        EXPECT_EQ(zuhost::replaceFile(path, "x"), error);
        EXPECT_EQ(std::get<int>(zuhost::readWholeFile(path)), error);
    }
    EXPECT_EQ(zuhost::replaceFile(folder.file(std::string(255, 'x')), "x"), 0);
    EXPECT_EQ(filesIn(folder), 3U);
}

TEST(Replacing, RefusesPipesAndDevices) {
    const TemporaryFolder folder;
    const std::string pipe = folder.file("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(zuhost::replaceFile(pipe, "new"), EPERM);
    EXPECT_TRUE(fs::is_fifo(pipe));
    EXPECT_EQ(filesIn(folder), 1U);
}

} // namespace
