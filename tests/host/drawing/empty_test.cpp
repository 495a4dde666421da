#include "notation.h"

#include <gtest/gtest.h>

using namespace zuhost;

TEST(EmptyDrawing, HasWhatDrawingsNeed) {
    const auto document = Document::createEmpty(nullptr);
    ASSERT_TRUE(document);
    EXPECT_EQ(document->version(), 1032);
    EXPECT_TRUE(document->warnings().empty());
    for (const char* table :
         {"VPORT", "LTYPE", "LAYER", "STYLE", "VIEW", "UCS", "APPID", "DIMSTYLE", "BLOCK_RECORD"})
        EXPECT_FALSE(document->container(Container::Kind::table, table).created) << table;
    const Container& model = document->container(Container::Kind::block, "*Model_Space");
    EXPECT_EQ(document->typeName(*model.head->owner), "BLOCK_RECORD");
    // Every object has an owner that is there, but for the tables and the root dictionary.
    for (const Container& container : document->containers())
        for (const AcDbStub* stub : container.members)
            EXPECT_TRUE(stub->owner || stub->handle == 0xC) << stub->handle;
}
