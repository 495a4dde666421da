// Truncated, overlong and damaged input: every complete record is kept.
#include "part_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>

namespace zu::test {
namespace {

std::size_t countOf(const CAcadDxf& part) {
    std::size_t count = 0;
    for (POSITION at = part.GetBlocks().GetHeadPosition(); at != nullptr;) {
        const auto* const block = static_cast<const CBlock*>(part.GetBlocks().GetNext(at));
        count += static_cast<std::size_t>(block->m_entities.GetCount());
    }
    return count + static_cast<std::size_t>(part.GetEntities().GetCount());
}

TEST(Damaged, TruncatedAtEveryByte) {
    for (const char* name : {"fitting-02.dxf", "binary/fitting-02.dxf"}) {
        SCOPED_TRACE(name);
        const std::string bytes = readBytes(sample(name));
        const PartFile file(bytes);
        const std::size_t all = countOf(CAcadDxf(file.path()));
        std::size_t least = all;
        for (std::size_t size = bytes.size(); size-- > 0;) {
            std::filesystem::resize_file(file.systemPath(), size);
            const std::size_t count = countOf(CAcadDxf(file.path()));
            ASSERT_LE(count, least) << size;
            ASSERT_GE(count + 1, least) << size;
            least = count;
        }
        EXPECT_EQ(least, 0U);
    }
}

// With values of varying length, records cross the reader's block boundaries at every position.
constexpr int kTexts = 10000;

std::string valueOf(int i) {
    return std::string(static_cast<std::size_t>(i) % 97, 'x');
}

void expectTexts(const std::string& bytes) {
    const PartFile file(bytes);
    const CAcadDxf part(file.path());
    ASSERT_EQ(part.GetEntities().GetCount(), kTexts);
    int i = 0;
    for (POSITION at = part.GetEntities().GetHeadPosition(); at != nullptr; ++i) {
        const auto* const text = static_cast<const CText*>(part.GetEntities().GetNext(at));
        ASSERT_EQ(text->m_x, i + 0.5);
        ASSERT_EQ(text->GetText().GetLength(), i % 97);
    }
}

TEST(Damaged, RecordsCrossBlockBoundaries) {
    for (const char* end : {"\n", "\r\n", "\r"}) {
        std::string bytes;
        const auto add = [&](std::initializer_list<std::string> lines) {
            for (const std::string& line : lines)
                bytes.append(line).append(end);
        };
        add({"0", "SECTION", "2", "ENTITIES"});
        for (int i = 0; i < kTexts; ++i)
            add({"0", "TEXT", "1", valueOf(i), " 999 ", valueOf(i), "10", std::to_string(i) + ".5"});
        add({"0", "ENDSEC", "0", "EOF"});
        expectTexts(bytes);
    }
    std::string records;
    for (int i = 0; i < kTexts; ++i) {
        records += binaryText(0, "TEXT") + binaryText(1, valueOf(i)) + binaryText(999, valueOf(i));
        append(records, 310, 2); // A chunk.
        append(records, 3, 1);
        append(records, 0, 3);
        append(records, 10, 2);
        append(records, std::bit_cast<std::uint64_t>(i + 0.5), 8);
    }
    expectTexts(binaryDrawing(records));
}

TEST(Damaged, PolylineOfManyPoints) {
    std::string bytes = "0\nSECTION\n2\nENTITIES\n0\nLWPOLYLINE\n";
    constexpr int kPoints = 300000;
    for (int i = 0; i < kPoints; ++i)
        bytes += "10\n" + std::to_string(i) + "\n20\n-1\n";
    const PartFile file(bytes + "0\nPOINT\n10\n7\n");
    const CAcadDxf part(file.path());
    const auto points = static_cast<const CLwPline&>(*part.GetEntities().GetHead()).GetPoints();
    ASSERT_EQ(points.size(), std::size_t{kPoints});
    for (int i = 0; i < kPoints; ++i)
        ASSERT_TRUE(points[static_cast<std::size_t>(i)].x == i &&
                    points[static_cast<std::size_t>(i)].y == -1);
    EXPECT_EQ(static_cast<const CAcPoint&>(*part.GetEntities().GetTail()).m_x, 7);
}

TEST(Damaged, LongLinesAndBrokenStructure) {
    const std::string longLine(3'000'000, 'z');
    const std::string start = "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n";
    const std::pair<std::string, std::size_t> cases[] = {
        {start + longLine + "\n0\nPOINT\n0\nENDSEC\n", 2},
        {start + "a\n" + longLine + "\nvalue\n0\nPOINT\n", 1},   // a group code that is not a number
        {start + "a\n0\nLINE\n10", 2},                           // ends between code and value
        {"0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\na\n0\nLINE\n", 1}, // no end of block or section
        {"0\nSECTION\n2\nHEADER\n0\nENDSEC\n9\n$DIMASZ\n40\n1\n0\nENDSEC\n" + start + "a\n",
         1},                                                                // ended twice
        {"0\nSECTION\n2\nHEADER\n0\nENDSEC\n0\nLINE\n" + start + "a\n", 0}, // an entity between sections
        {"0\nSECTION\n0\nLINE\n", 0},                                       // a section without a name
        {"0\nLINE\n0\nSECTION\n2\nENTITIES\n0\nLINE\n", 0}, // an entity before the first section
        {"0\nSECTION\n2\nENTITIES\n0\nLWPOLYLINE\n90\n2000000000\n20\n1\n42\n1\n10\n1\n", 1},
    };
    for (const auto& [bytes, entities] : cases) {
        const PartFile file(bytes);
        EXPECT_EQ(countOf(CAcadDxf(file.path())), entities) << bytes.substr(0, 60);
    }
}

TEST(Damaged, FaultsAreSkippedAndListed) {
    std::string good; // Longer than a block of the reader, before the faulty entities.
    for (int i = 0; i < 10000; ++i)
        good += "0\nCIRCLE\n";
    const std::string bytes =
        "999\n \n0\nSECTION\n2\nTABLES\n0\nTABLE\n0\nENDTAB\n0\nTABLE\n5\n2\n2\nLAYER\n0\nLAYER\n2\nA\n"
        "62\n-7x\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n" +
        good +
        "\n \n0\nTEXT\n62\n65537\n10\n12abc\n20\nnan\n370\n99999\n0\nVERTEX\n0\nLINE\n10\n5\n70\n1\n62\n-1\n"
        "0\nENDSEC\n0\nLINE\n";
    for (const char end : {'\n', '\r'}) {
        std::string text = bytes;
        std::replace(text.begin(), text.end(), '\n', end);
        const PartFile file(text);
        const CAcadDxf part(file.path());
        std::string places;
        for (const dxf::Finding& finding : part.GetFindings().kept)
            places += std::to_string(finding.line) + ":" + std::to_string(finding.code) + " ";
        EXPECT_EQ(places, "9:0 15:2 21:62 20030:-1 20033:62 20035:10 20037:20 20041:0 20049:62 20053:0 ");
        EXPECT_EQ(part.GetLyColor(L"a"), -7);
        ASSERT_EQ(part.GetEntities().GetCount(), 10002);
        const auto* const line = static_cast<const CEnt*>(part.GetEntities().GetTail());
        POSITION last = part.GetEntities().GetTailPosition();
        part.GetEntities().GetPrev(last);
        const auto& odd = static_cast<const CText&>(*part.GetEntities().GetPrev(last));
        EXPECT_EQ(std::tuple(odd.m_x, odd.m_y), std::tuple(12, 0));
        EXPECT_EQ(std::tuple(odd.m_color, line->m_color, odd.m_lineWeight), std::tuple(256, 256, 32767));
    }
    std::string many = "0\nSECTION\n2\nENTITIES\n0\nLINE\n";
    for (int i = 0; i < 1000; ++i)
        many += "10\nx\n";
    const PartFile file(many);
    const CAcadDxf part(file.path());
    EXPECT_EQ(part.GetFindings().count, 1000U);
    EXPECT_EQ(part.GetFindings().kept.size(), 50U);
}

} // namespace
} // namespace zu::test
