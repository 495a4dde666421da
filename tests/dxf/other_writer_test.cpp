// Binary drawings that a script writes: the test starts Python.
#include "part_files.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace zu::test {
namespace {

/// Reads binary drawings of another writer, with the group codes of newer versions.
TEST(Samples, BinaryDrawingsOfAnotherWriter) {
    for (const PlainJson& drawing : expectedDrawings()) {
        const std::string name = drawing.at("file");
        SCOPED_TRACE(name);
        const PartFile ascii("", "ascii.dxf");
        const PartFile binary("", "binary.dxf");
        const std::string command = std::string("/usr/bin/python3 " ZU_WRITE_BINARY " '") +
                                    sample(name).string() + "' '" + ascii.systemPath() + "' '" +
                                    binary.systemPath() + "'";
        ASSERT_EQ(std::system(command.c_str()), 0);
        PlainJson original = modelOf(CAcadDxf(ascii.path()));
        ASSERT_FALSE(original["entities"].empty());
        original["ascii"] = 0;
        EXPECT_EQ(modelOf(CAcadDxf(binary.path())), original);
    }
}

} // namespace
} // namespace zu::test
