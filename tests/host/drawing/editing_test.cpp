#include "notation.h"

#include "dxf_records/number_text.h"

#include <gtest/gtest.h>
#include <map>
#include <sstream>

using namespace zuhost;

namespace {

/// Tags of changed objects, as the database supplies them.
class Changes {
public:
    TagList& operator[](const AcDbStub* stub) { return tags_[stub]; }

    [[nodiscard]] Document::TagSource source() const {
        return [this](const AcDbStub& stub) {
            const auto found = tags_.find(&stub);
            return found == tags_.end() ? nullptr : &found->second;
        };
    }

private:
    std::map<const AcDbStub*, TagList> tags_;
};

std::string officeFloor() {
    return fileBytes(ZU_SAMPLES "/drawings/office-floor-932.dxf");
}

std::size_t differingLines(const std::string& a, const std::string& b) {
    std::istringstream left(a);
    std::istringstream right(b);
    std::size_t count = 0;
    for (std::string x, y; std::getline(left, x) && std::getline(right, y);)
        count += x == y ? 0U : 1U;
    return count;
}

/// Ends lines with CR LF and pads group codes with blanks.
std::string padded(const std::string& records, std::size_t width) {
    std::istringstream lines(records);
    std::string result;
    for (std::string code, value; std::getline(lines, code) && std::getline(lines, value);)
        result.append(code.size() < width ? width - code.size() : 0, ' ')
            .append(code + "\r\n" + value + "\r\n");
    return result;
}

} // namespace

TEST(Editing, OneChangedValueChangesOneLine) {
    const std::string bytes = officeFloor();
    const auto document = opened(bytes);
    const AcDbStub* insert = member(*document, "INSERT");
    Changes changes;
    changes[insert] = document->tags(*insert);
    changes[insert].setText(8, document->encode(L"表示能力"), changes[insert].all());
    const std::string edited = saved(*document, changes.source());
    EXPECT_EQ(differingLines(bytes, edited), 1U);
    const auto again = opened(edited);
    const TagList tags = again->tags(*again->find(insert->handle));
    EXPECT_EQ(again->decode(*TagView(tags).text(8)), L"表示能力");
}

TEST(Editing, ChangedObjectsAreFormattedLikeTheirFile) {
    for (const std::string start : {"", "999\r\na comment\r\n"}) {
        for (const std::size_t width : {1U, 3U, 6U}) {
            const auto plan = [&](const std::string& colour) {
                return start +
                       padded(ascii("0 SECTION|2 ENTITIES|0 LINE|62 " + colour + "|0 ENDSEC|0 EOF"), width);
            };
            const auto document = opened(plan("1"));
            const AcDbStub* line = member(*document, "LINE");
            Changes changes;
            changes[line] = document->tags(*line);
            changes[line].setInteger(62, 7, changes[line].all());
            EXPECT_EQ(saved(*document, changes.source()), plan("7"));
        }
    }
}

TEST(Editing, AddedEntryRaisesSeedAndCount) {
    const std::string bytes = officeFloor();
    const auto document = opened(bytes);
    Container& applications = document->container(Container::Kind::table, "APPID");
    const std::size_t before = applications.members.size();
    AcDbStub* added = document->append(applications, "APPID", applications.head);
    EXPECT_EQ(document->find(added->handle), added);
    Changes changes;
    TagList tags = document->tags(*added);
    for (const auto& [code, value] :
         {std::pair(100, "AcDbSymbolTableRecord"), std::pair(100, "AcDbRegAppTableRecord"),
          std::pair(2, "MINE"), std::pair(70, "0")})
        tags.add(code, value);
    changes[added] = tags;

    const auto again = opened(saved(*document, changes.source()));
    const Container& table = again->container(Container::Kind::table, "APPID");
    ASSERT_EQ(table.members.size(), before + 1);
    EXPECT_EQ(table.members.back()->handle, added->handle);
    EXPECT_EQ(table.members.back()->owner, table.head);
    const TagList head = again->tags(*table.head);
    EXPECT_EQ(TagView(head).integer(70), static_cast<std::int64_t>(before + 1));
    const TagList header = again->header();
    const std::size_t seed = header.find(5, header.all());
    EXPECT_GT(parseHandle(header[seed].value), added->handle);
}

TEST(Editing, ErasedObjectsAreOmitted) {
    const std::string bytes = drawing("AC1015", R"(
0 SECTION|2 BLOCKS|0 BLOCK|5 1|2 A|0 LINE|5 2|0 ENDBLK|5 3|0 BLOCK|5 4|2 B|0 LINE|5 5|0 ENDBLK|5 6|0 ENDSEC
0 SECTION|2 ENTITIES|0 LINE|5 10|0 INSERT|5 11|66 1|0 ATTRIB|5 12|330 11|0 SEQEND|5 13|0 CIRCLE|5 14|0 ENDSEC
0 SECTION|2 OBJECTS|0 DICTIONARY|5 20|0 DICTIONARY|5 21|330 20|0 ENDSEC)");
    const auto document = opened(bytes);
    for (const std::uint64_t handle : {0x1U, 0x11U, 0x20U})
        document->find(handle)->erased = true;
    EXPECT_EQ(saved(*document), drawing("AC1015", R"(
0 SECTION|2 BLOCKS|0 BLOCK|5 4|2 B|0 LINE|5 5|0 ENDBLK|5 6|0 ENDSEC
0 SECTION|2 ENTITIES|0 LINE|5 10|0 CIRCLE|5 14|0 ENDSEC
0 SECTION|2 OBJECTS|0 DICTIONARY|5 21|330 20|0 ENDSEC)"));
    for (const std::uint64_t handle : {0x1U, 0x11U, 0x20U})
        document->find(handle)->erased = false;
    EXPECT_EQ(saved(*document), bytes);
}

TEST(Editing, NewMembersAreWrittenAtTheirPosition) {
    const auto document =
        opened(drawing("AC1015", "0 SECTION|2 ENTITIES|0 INSERT|5 11|0 LINE|5 12|999 at the end|0 ENDSEC"));
    Container& entities = document->container(Container::Kind::entities);
    AcDbStub* insert = entities.members[0];
    document->append(entities, "POINT", nullptr);
    AcDbStub* attribute = document->append(entities, "ATTRIB", insert);
    entities.members.pop_back();
    entities.members.insert(entities.members.begin() + 1, attribute);
    EXPECT_EQ(saved(*document), ascii("0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|9 $HANDSEED|5 15|0 ENDSEC"
                                      "|0 SECTION|2 ENTITIES|0 INSERT|5 11|0 ATTRIB|5 14|330 11|0 LINE|5 12"
                                      "|999 at the end|0 POINT|5 13|330 0|0 ENDSEC|0 EOF"));
}

TEST(Editing, MissingTablesBlocksAndSectionsAreCreated) {
    const std::string bytes = ascii("0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|9 $HANDSEED|5 11|0 ENDSEC"
                                    "|0 SECTION|2 ENTITIES|0 LINE|5 10|0 ENDSEC|0 EOF");
    const auto document = opened(bytes);
    Container& objects = document->container(Container::Kind::objects);
    Container& layers = document->container(Container::Kind::table, "LAYER");
    EXPECT_EQ(&layers, &document->container(Container::Kind::table, "LAYER"));
    EXPECT_EQ(saved(*document), bytes) << "containers without members are not written";
    document->append(objects, "DICTIONARY", nullptr);
    document->append(layers, "LAYER", layers.head);
    Container& block = document->appendBlock("B", nullptr);
    document->append(block, "LINE", block.head);

    const auto again = opened(saved(*document));
    std::vector<std::string> kinds;
    for (const Container& container : again->containers())
        kinds.push_back(std::to_string(static_cast<int>(container.kind)) + container.name + "/" +
                        std::to_string(container.members.size()));
    EXPECT_EQ(kinds, (std::vector<std::string>{"0LAYER/1", "1B/1", "2/1", "3/1"}));
    EXPECT_EQ(again->objectCount(), document->objectCount());
}

TEST(Editing, NewObjectsOfDrawingsWithoutHandlesHaveNone) {
    const auto document = opened(ascii("0 SECTION|2 ENTITIES|0 LINE|8 0|0 ENDSEC|0 EOF"));
    document->append(document->container(Container::Kind::entities), "POINT", nullptr);
    EXPECT_EQ(saved(*document), ascii("0 SECTION|2 ENTITIES|0 LINE|8 0|0 POINT|0 ENDSEC|0 EOF"));
}

TEST(Editing, ChangedHeaderIsWritten) {
    const auto document = opened(drawing("AC1032", ""));
    TagList header = document->header();
    header.add(9, "$CUSTOMPROPERTYTAG");
    header.add(1, "ZU");
    document->setHeader(header);
    EXPECT_EQ(saved(*document),
              ascii("0 SECTION|2 HEADER|9 $ACADVER|1 AC1032|9 $CUSTOMPROPERTYTAG|1 ZU|0 ENDSEC|0 EOF"));
    const auto bare = opened(ascii("0 EOF"));
    bare->setHeader(header);
    EXPECT_EQ(saved(*bare), saved(*document));
}

TEST(Editing, EditedDrawingsCanChangeTheirForm) {
    const auto document = opened(officeFloor());
    AcDbStub* line = member(*document, "LINE");
    line->erased = true;
    const auto binary = opened(document->bytes(DrawingForm::binary, nullptr));
    EXPECT_EQ(binary->objectCount() + 1, document->objectCount());
    EXPECT_EQ(binary->find(line->handle), nullptr);
}
