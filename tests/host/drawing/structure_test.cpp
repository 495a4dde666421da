#include "notation.h"

#include "dxf_records/number_text.h"

#include <gtest/gtest.h>

using namespace zuhost;

namespace {

constexpr const char* kR12Sections = R"(999 made by hand
0 SECTION|2 TABLES
0 TABLE|2 LAYER|70 1|0 LAYER|2 walls|70 0|62 7|6 CONTINUOUS|0 ENDTAB
0 TABLE|2 DIMSTYLE|70 1|0 DIMSTYLE|2 STANDARD|5 _DOT|0 ENDTAB
0 ENDSEC
0 SECTION|2 BLOCKS
0 BLOCK|8 0|2 $MODEL_SPACE|70 0|0 ENDBLK|8 0
0 BLOCK|8 0|2 TREE|70 2|0 CIRCLE|8 0|40 1.0|0 ENDBLK|8 0
0 ENDSEC
0 SECTION|2 ENTITIES
0 POLYLINE|8 walls|66 1|0 VERTEX|8 walls|10 0.0|999 a corner|0 VERTEX|8 walls|10 5.0|0 SEQEND|8 walls
0 INSERT|8 0|66 1|2 TREE|0 ATTRIB|8 0|1 oak|0 SEQEND|8 0
0 LINE|8 walls
0 ENDSEC)";

std::vector<std::string> types(const Document& document, const Container& container) {
    std::vector<std::string> names;
    for (const AcDbStub* stub : container.members)
        names.push_back(document.typeName(*stub));
    return names;
}

const Container& last(const Document& document, Container::Kind kind) {
    const Container* found = nullptr;
    for (const Container& container : document.containers())
        if (container.kind == kind)
            found = &container;
    EXPECT_TRUE(found);
    return *found;
}

} // namespace

TEST(Structure, DrawingsBeforeR13GetInternalHandles) {
    const auto document = opened(drawing("AC1009", kR12Sections));
    EXPECT_EQ(document->version(), 1009);
    ASSERT_EQ(document->containers().size(), 5U);
    const AcDbStub* dimStyle = member(*document, "DIMSTYLE");
    EXPECT_TRUE(dimStyle->hasInternalHandle); // its code 5 is the name of a block
    EXPECT_EQ(document->handleCode(*dimStyle), 105);
    for (const Container& container : document->containers()) {
        for (const AcDbStub* stub : container.members) {
            EXPECT_TRUE(stub->hasInternalHandle);
            EXPECT_EQ(document->find(stub->handle), stub);
        }
    }
}

TEST(Structure, HandlesAreFoundBetweenGaps) {
    std::string sections = "0 SECTION|2 ENTITIES";
    std::vector<bool> used(700);
    // Runs and gaps of many lengths, from a first handle above 1.
    for (std::size_t handle = 5, step = 1; handle < used.size(); handle += step % 7 == 0 ? step : 1, ++step) {
        used[handle] = true;
        sections += "|0 LINE|5 " + formatHandle(handle) + "|8 0";
    }
    const auto document = opened(drawing("AC1009", sections + "|0 ENDSEC"));
    for (std::size_t handle = 0; handle < used.size(); ++handle) {
        const AcDbStub* const found = document->find(handle);
        ASSERT_EQ(found != nullptr && document->typeName(*found) == "LINE", used[handle]) << handle;
        EXPECT_TRUE(found == nullptr || found->handle == handle);
    }
}

TEST(Structure, VerticesAndAttributesBelongToTheEntityBeforeThem) {
    const auto document = opened(drawing("AC1009", kR12Sections));
    const Container& entities = last(*document, Container::Kind::entities);
    ASSERT_EQ(types(*document, entities), (std::vector<std::string>{"POLYLINE", "VERTEX", "VERTEX", "SEQEND",
                                                                    "INSERT", "ATTRIB", "SEQEND", "LINE"}));
    const auto& members = entities.members;
    for (const std::size_t i : {1U, 2U, 3U})
        EXPECT_EQ(members[i]->owner, members[0]);
    for (const std::size_t i : {5U, 6U})
        EXPECT_EQ(members[i]->owner, members[4]);
    const auto strays =
        opened(ascii("0 SECTION|2 BLOCKS|0 BLOCK|2 A|0 INSERT|0 ENDBLK|0 BLOCK|2 B|0 ATTRIB|0 ENDBLK"
                     "|0 ENDSEC|0 EOF"));
    EXPECT_EQ(member(*strays, "ATTRIB")->owner, last(*strays, Container::Kind::block).head);
    const TagList vertex = document->tags(*members[1]);
    EXPECT_EQ(vertex[vertex.size() - 1], (Tag{999, "a corner"}));
}

TEST(Structure, OwnersBeforeR13AreTablesAndBlocks) {
    const auto document = opened(drawing("AC1009", kR12Sections));
    const Container& layers = document->container(Container::Kind::table, "LAYER");
    EXPECT_EQ(layers.members.at(0)->owner, layers.head);
    const Container& tree = document->container(Container::Kind::block, "TREE");
    EXPECT_EQ(tree.members.at(0)->owner, tree.head);
    const Container& model = document->container(Container::Kind::block, "$MODEL_SPACE");
    EXPECT_EQ(member(*document, "LINE")->owner, model.head);
}

TEST(Structure, OwnersFromR13AreNamedByTheFile) {
    const auto document = opened(drawing("AC1015", R"(
0 SECTION|2 TABLES|0 TABLE|2 BLOCK_RECORD|5 1|330 0|100 AcDbSymbolTable|70 3
0 BLOCK_RECORD|5 1F|330 1|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 *Model_Space
0 BLOCK_RECORD|5 2F|330 1|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 *Paper_Space|0 ENDTAB|0 ENDSEC
0 SECTION|2 BLOCKS|0 BLOCK|5 20|330 1F|8 0|2 *Model_Space|0 ENDBLK|5 21|330 1F
0 BLOCK|5 22|8 0|2 *Paper_Space|0 ENDBLK|5 23|0 ENDSEC
0 SECTION|2 ENTITIES
0 LINE|5 30|102 {ACAD_REACTORS|330 41|102 }|330 1F|100 AcDbEntity|8 0
0 POINT|5 31|100 AcDbEntity|67 1|8 0
0 CIRCLE|5 32|5 33|330 1F|330 2F|100 AcDbEntity|8 0|330 2F
0 ARC|5 FFFFFFFFFFFFFF00|330 ABCDEF|100 AcDbEntity|8 0|0 ENDSEC
0 SECTION|2 OBJECTS|0 DICTIONARY|5 40|330 0|0 DICTIONARY|5 41|330 40|0 GROUP|5 42|330 99|0 ENDSEC)"));
    const auto ownerOf = [&](std::uint64_t handle) {
        const AcDbStub* stub = document->find(handle);
        return stub && stub->owner ? stub->owner->handle : 0;
    };
    EXPECT_EQ(ownerOf(0x1F), 1U);
    EXPECT_EQ(ownerOf(0x30), 0x1FU); // not the one of the reactors
    EXPECT_EQ(ownerOf(0x31), 0x2FU); // none named: the record of paper space
    EXPECT_EQ(ownerOf(0x32), 0x1FU); // ignores 330 after the first marker, and the second one before it
    EXPECT_EQ(ownerOf(0xFFFFFFFFFFFFFF00), 0x1FU);
    EXPECT_EQ(ownerOf(0x23), 0x2FU);
    EXPECT_EQ(ownerOf(0x41), 0x40U);
    EXPECT_EQ(ownerOf(0x42), 0U);
    AcDbStub* added = document->append(document->container(Container::Kind::objects), "XRECORD", nullptr);
    EXPECT_EQ(added->handle, 0xFFFFFFFFFFFFFF01U);
}

TEST(Structure, EntitiesAloneAreADrawing) {
    const auto document = opened(ascii("0 SECTION|2 ENTITIES|0 LINE|8 0|0 ENDSEC|0 EOF"));
    EXPECT_EQ(document->version(), 1009);
    EXPECT_EQ(document->objectCount(), 1U);
    EXPECT_EQ(member(*document, "LINE")->owner, nullptr);
    EXPECT_TRUE(document->header().empty());
}

TEST(Structure, UnknownContentsArePreserved) {
    const std::string bytes = "\xEF\xBB\xBF" + drawing("AC1032", R"(
999 between sections
0 SECTION|2 THUMBNAILIMAGE|90 4|310 00FF00FF|0 ENDSEC
0 SECTION|2 ACDSDATA|70 2|0 ACDSSCHEMA|90 0|0 ENDSEC
0 SECTION|2 TABLES|999 in tables|0 TABLE|2 APPID|999 in a table|70 0|0 ENDTAB|999 more|0 ENDSEC
0 SECTION|2 BLOCKS|999 none|0 ENDSEC
0 SECTION|2 ENTITIES|0 STRANGE|1 x|102 {MINE|70 1|102 }|101 Embedded Object|70 1|0 ENDSEC)") +
                              "\n \n\x1A";
    const auto document = opened(bytes);
    EXPECT_EQ(saved(*document), bytes);
    EXPECT_EQ(document->objectCount(), 2U);
}

TEST(Structure, BinaryDrawingsBeforeR13HaveShortGroupCodes) {
    const auto document = opened(drawing("AC1009", kR12Sections));
    const std::string binary = document->bytes(DrawingForm::binary, nullptr);
    EXPECT_EQ(binary.substr(22, 8), std::string("\0SECTION", 8));
    const auto again = opened(binary);
    EXPECT_EQ(again->form(), DrawingForm::binary);
    EXPECT_EQ(saved(*again), binary);
    EXPECT_EQ(again->objectCount(), document->objectCount());
    // Other readers decide by the text of $ACADVER, and read a drawing without it as one of R12.
    const auto firstCode = [](const std::string& bytes) {
        return opened(bytes)->bytes(DrawingForm::binary, nullptr).substr(22, 3);
    };
    EXPECT_EQ(firstCode(ascii("0 SECTION|2 ENTITIES|0 ENDSEC|0 EOF")), std::string("\0SE", 3));
    EXPECT_EQ(firstCode(drawing("AC10XX", "")), std::string("\0\0S", 3));
}

TEST(Structure, EmptyDrawingsHaveTablesSpacesAndOwners) {
    const auto document = Document::createEmpty(nullptr);
    ASSERT_TRUE(document);
    EXPECT_EQ(document->version(), 1032);
    EXPECT_TRUE(document->warnings().empty());
    for (const char* table :
         {"VPORT", "LTYPE", "LAYER", "STYLE", "VIEW", "UCS", "APPID", "DIMSTYLE", "BLOCK_RECORD"})
        EXPECT_FALSE(document->container(Container::Kind::table, table).created) << table;
    const Container& model = document->container(Container::Kind::block, "*Model_Space");
    EXPECT_EQ(document->typeName(*model.head->owner), "BLOCK_RECORD");
    // Only the root dictionary has no owner.
    for (const Container& container : document->containers())
        for (const AcDbStub* stub : container.members)
            EXPECT_TRUE(stub->owner || stub->handle == 0xC) << stub->handle;
}
