#include "dxf_records/record_reader.h"

#include <gtest/gtest.h>

namespace zuhost::dxf {
namespace {

using Records = std::vector<std::pair<int, std::string>>;

template <typename Reader>
Records readAll(Reader reader, RecordError* error = nullptr) {
    Records records;
    Record record;
    std::size_t end = 0;
    ReadResult result = reader.next(record);
    for (; result == ReadResult::record; result = reader.next(record)) {
        // Records are adjacent.
        EXPECT_TRUE(records.empty() || record.offset == end);
        end = record.end;
        records.emplace_back(record.code, record.value);
    }
    EXPECT_EQ(result == ReadResult::error, !reader.error().problem.empty());
    if (error != nullptr)
        *error = reader.error();
    return records;
}

TEST(AsciiReader, LineEndsBlanksAndTrailingBytes) {
    const Records expected = {{0, "SECTION"}, {9, ""}, {-4, " a b "}, {1071, "5"}};
    const std::string_view files[] = {
        "  0\nSECTION\n  9\n\n -4\n a b \n1071\n5",
        "  0\r\nSECTION\r\n9  \r\n\r\n\t-4\r\n a b \r\n1071\r\n5\r\n",
        "0\rSECTION\r9\r\r-4\r a b \r1071\r5\r",
        "\uFEFF0\nSECTION\n9\n\n-4\n a b \n1071\n5\n\n \r\n\x1a",
    };
    for (const std::string_view file : files)
        EXPECT_EQ(readAll(AsciiReader(file)), expected) << file;
}

TEST(AsciiReader, ValuesOfEveryLength) {
    // findByte searches sixteen bytes at a time, then calls the library.
    for (std::size_t length = 0; length < 100; ++length) {
        const std::string value(length, '\x8A');
        for (const char* end : {"\n", "\r\n"}) {
            const std::string file = std::string("1") + end + value + end + "2" + end + "x";
            EXPECT_EQ(readAll(AsciiReader(file)), (Records{{1, value}, {2, "x"}})) << length;
        }
    }
}

TEST(AsciiReader, GroupCodesOfEveryWidth) {
    const std::pair<std::string, int> codes[] = {
        {"1", 1},    {" 1", 1},    {"  1", 1},    {"   1", 1},    {" 10", 10},     {"010", 10},
        {"10 ", 10}, {"100", 100}, {" 100", 100}, {"1071", 1071}, {" 1071", 1071}, {"12345", 12345}};
    for (const auto& [text, code] : codes)
        for (const char* end : {"\n", "\r\n"}) {
            const std::string file = text + end + "x" + end;
            EXPECT_EQ(readAll(AsciiReader(file + file)), (Records{{code, "x"}, {code, "x"}})) << text;
        }
}

TEST(AsciiReader, Faults) {
    const std::tuple<std::string_view, std::size_t, std::size_t, std::uint64_t, bool> cases[] = {
        {"0\na\nx\nb\n", 1, 4, 3, false},    {"0\na\n1x\nb\n", 1, 4, 3, false},
        {"0\na\n\nb\n", 1, 4, 3, false},     {"0\na\n123456\nb", 1, 4, 3, false},
        {"0\na\n5\n", 1, 4, 3, true},        {"0\na\n5", 1, 4, 3, true},
        {"0\na\n-", 1, 4, 3, true},          {"1 2\na\n", 0, 0, 1, false},
        {"0\na\n 1 2\nb\n", 1, 4, 3, false}, {"0\na\n   \nbbb\n", 1, 4, 3, false},
    };
    for (const auto& [file, good, offset, line, incomplete] : cases) {
        RecordError error;
        EXPECT_EQ(readAll(AsciiReader(file), &error).size(), good) << file;
        EXPECT_EQ(error.offset, offset) << file;
        EXPECT_EQ(error.line, line) << file;
        EXPECT_EQ(error.incomplete, incomplete) << file;
    }
}

std::string code(int value) {
    return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8)};
}

const std::string kSentinel(kBinarySentinel);

std::string joined(std::initializer_list<std::string_view> pieces) {
    std::string bytes;
    for (const std::string_view piece : pieces)
        bytes += piece;
    return bytes;
}

TEST(BinaryReader, ValuesByGroupCode) {
    const std::string zero(1, '\0');
    // Values of 280 have two bytes, of 290 one, of 160 eight; 1004 and 310 store their length.
    const std::pair<int, std::size_t> cases[] = {{10, 8},   {59, 8},   {60, 2},  {90, 4},  {140, 8}, {149, 8},
                                                 {160, 8},  {170, 2},  {280, 2}, {290, 1}, {370, 2}, {390, 0},
                                                 {420, 4},  {460, 8},  {481, 0}, {450, 4}, {400, 2}, {430, 0},
                                                 {1010, 8}, {1070, 2}, {1071, 4}};
    for (const auto& [groupCode, size] : cases) {
        const std::string value = size > 0 ? std::string(size, '\x07') : "text";
        const std::string terminator = size > 0 ? "" : zero;
        const std::string file = joined(
            {kSentinel, code(0), "SECTION", zero, code(groupCode), value, terminator, code(2), "x", zero});
        EXPECT_EQ(readAll(BinaryReader(file)), (Records{{0, "SECTION"}, {groupCode, value}, {2, "x"}}))
            << groupCode;
    }
    const std::string chunk =
        kSentinel + code(0) + "A" + zero + code(1004) + "\3a" + zero + "b" + code(310) + zero;
    EXPECT_EQ(readAll(BinaryReader(chunk)), (Records{{0, "A"}, {1004, std::string("a\0b", 3)}, {310, ""}}));
}

TEST(BinaryReader, OneByteCodes) {
    const std::string zero(1, '\0');
    const std::string file = kSentinel + zero + "SECTION" + zero + "\x02" + "HEADER" + zero + "\xFF" +
                             code(1000) + "app" + zero + "\x46" + code(-2 & 0xFFFF);
    BinaryReader reader(file);
    EXPECT_EQ(reader.codeForm(), CodeForm::bytes);
    EXPECT_EQ(readAll(reader), (Records{{0, "SECTION"}, {2, "HEADER"}, {1000, "app"}, {70, code(0xFFFE)}}));
    const std::string stray = joined({kSentinel, zero, zero, zero, "ENDSEC", zero, zero, "EOF", zero});
    EXPECT_EQ(readAll(BinaryReader(stray)), (Records{{0, ""}, {0, "ENDSEC"}, {0, "EOF"}}));
}

TEST(BinaryReader, StrictTableHasFewerCodes) {
    const std::string zero(1, '\0');
    for (const int unknown : {101, 110, 148, 160, 310 + 60, 390, 420, 470, 999}) {
        const std::string file = joined({kSentinel, code(0), "A", zero, code(unknown), "11111111", zero});
        RecordError error;
        EXPECT_EQ(readAll(BinaryReader(file, CodeTable::strict), &error).size(), 1U) << unknown;
        EXPECT_FALSE(error.incomplete);
        EXPECT_GE(readAll(BinaryReader(file)).size(), 2U) << unknown;
    }
    const std::string twoBytes =
        kSentinel + code(0) + "A" + zero + code(290) + code(1) + code(310) + "0A" + zero;
    EXPECT_EQ(readAll(BinaryReader(twoBytes, CodeTable::strict)),
              (Records{{0, "A"}, {290, code(1)}, {310, "0A"}}));
}

TEST(BinaryReader, TruncatedRecordsAreIncomplete) {
    const std::string zero(1, '\0');
    const std::string file =
        kSentinel + code(0) + "A" + zero + code(1004) + "\2xy" + code(10) + std::string(8, '1');
    const std::size_t ends[] = {kSentinel.size(), kSentinel.size() + 4, kSentinel.size() + 9, file.size()};
    for (std::size_t size = kSentinel.size(); size <= file.size(); ++size) {
        RecordError error;
        readAll(BinaryReader(file.substr(0, size)), &error);
        const bool atEnd = std::find(std::begin(ends), std::end(ends), size) != std::end(ends);
        EXPECT_EQ(error.incomplete, !atEnd) << size;
    }
    const std::string unknown = kSentinel + code(0) + "A" + zero + code(1072) + "abc";
    RecordError error;
    readAll(BinaryReader(unknown), &error);
    EXPECT_EQ(error.offset, kSentinel.size() + 4);
    EXPECT_FALSE(error.incomplete);
}

} // namespace
} // namespace zuhost::dxf
