// How much of a file is read, seen by a pipe with a name.
#include "part_files.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zu::test {
namespace {

TEST(Pipes, CheckEntitiesStopsReadingAtTheFirstKeptEntity) {
    const TemporaryFolder folder;
    const std::string path = folder.file("pipe");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_FALSE(CAcadDxf::CheckEntities(hostPath(path))) << "nothing writes to the pipe";
    const int pipe = open(path.c_str(), O_RDWR | O_NONBLOCK);
    std::string bytes = "0\nSECTION\n2\nENTITIES\n0\nLINE\n";
    bytes.resize(std::size_t{64} * 1024, '\n');
    ASSERT_EQ(write(pipe, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    // Reading past the written bytes would block forever.
    EXPECT_TRUE(CAcadDxf::CheckEntities(hostPath(path)));
    close(pipe);
}

} // namespace
} // namespace zu::test
