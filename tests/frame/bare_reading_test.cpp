// How tables are read on the host's interface alone.
#include "../../src/reading/bare/line_block.h"
#include "../../src/reading/bare/text_pool.h"

#include <temporary_folder.h>

#include <gtest/gtest.h>

#include <string>

TEST(BareReading, BlocksHoldAllLinesInOrder) {
    const TemporaryFolder folder;
    std::string text;
    for (int i = 0; i < 1000; ++i)
        text += "line " + std::to_string(i) + "\r\n";
    folder.write("t", text);
    CStdioFile file(folder.wide("t").c_str(), CFile::modeRead | CFile::typeText);
    zu::LineBlock block;
    int lines = 0;
    int blocks = 0;
    for (; zu::readLines(file, block, 3000); ++blocks)
        for (CString line; block.readLine(line); ++lines)
            EXPECT_EQ(line, (L"line " + std::to_wstring(lines)).c_str());
    EXPECT_EQ(lines, 1000);
    EXPECT_EQ(blocks, 3);
    EXPECT_TRUE(block.isLast());
}

TEST(BareReading, ListsGrow) {
    zu::TextPool pool;
    const auto list = pool.makeArray(0);
    list->Add(pool.make(std::wstring_view(L"a\0b", 3)));
    EXPECT_EQ(list->GetSize(), 1);
    EXPECT_EQ(list->GetAt(0).GetLength(), 3);
}
