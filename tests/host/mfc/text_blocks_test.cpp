#include <zuhost/text_file.h>

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>

namespace {

using zuhost::TextBlock;
using zuhost::TextBlocks;

/// Returns a source that reads the bytes like a file.
TextBlocks::Source sourceOf(std::string bytes) {
    return [bytes = std::move(bytes), at = std::size_t{0}](char* place, std::size_t size) mutable {
        const std::size_t count = bytes.copy(place, size, at);
        at += count;
        return count;
    };
}

std::string encoded(const std::string& ascii, std::size_t unit) {
    std::string bytes;
    for (const char c : ascii) {
        bytes += c;
        bytes.append(unit - 1, '\0');
    }
    return bytes;
}

/// Reads the lines of consecutive blocks.
class Lines {
public:
    explicit Lines(TextBlocks::Source source) : blocks_(std::move(source)) {}

    std::optional<std::string> next() {
        auto line = block_.next();
        if (!line && blocks_.next(block_))
            line = block_.next();
        return line ? std::optional<std::string>(*line) : std::nullopt;
    }

private:
    TextBlocks blocks_;
    TextBlock block_;
};

TEST(TextBlocks, LinesOfALongTextAreComplete) {
    std::mt19937 random(7);
    for (const std::string mark : {"", "\xEF\xBB\xBF", "\xFF\xFE"}) {
        const std::size_t unit = mark == "\xFF\xFE" ? 2 : 1;
        std::vector<std::string> wanted;
        std::string text;
        for (int i = 0; i < 9000; ++i) {
            const std::size_t length = random() % 1000 == 0 ? random() % 400'000 : random() % 60;
            wanted.push_back(encoded(std::string(length, static_cast<char>('a' + i % 26)), unit));
            text += wanted.back() + encoded(random() % 2 == 0 ? "\n" : "\r\n", unit);
        }
        wanted.push_back(encoded("\r", unit)); // no line end without a line feed
        Lines lines(sourceOf(mark + text + wanted.back()));
        for (const std::string& line : wanted)
            ASSERT_EQ(lines.next(), line);
        EXPECT_EQ(lines.next(), std::nullopt);
        EXPECT_EQ(lines.next(), std::nullopt);
    }
}

TEST(TextBlocks, ControlZEndsTheText) {
    const std::string filler(300'000, 'x');
    for (const std::string& before : {std::string(), std::string("x"), filler}) {
        Lines lines(sourceOf(std::string(filler).append("\n").append(before).append("\x1Amore\nmore\n")));
        EXPECT_EQ(lines.next(), filler);
        EXPECT_EQ(lines.next(), before.empty() ? std::nullopt : std::optional(before));
        EXPECT_EQ(lines.next(), std::nullopt);
    }
}

TEST(TextBlocks, RejectsLinesOverTheLimit) {
    const std::string longest(TextBlocks::kLongestLine, 'x');
    Lines lines(sourceOf("a\n" + longest + "\n"));
    EXPECT_EQ(lines.next(), "a");
    EXPECT_EQ(lines.next(), longest);
    Lines tooLong(sourceOf(longest + "xx"));
    EXPECT_THROW((void)tooLong.next(), std::length_error);
    std::size_t given = 0;
    Lines endless([&given](char* place, std::size_t size) {
        std::fill_n(place, size, 'x');
        given += size;
        return size;
    });
    EXPECT_THROW((void)endless.next(), std::length_error);
    EXPECT_LT(given, 3 * TextBlocks::kLongestLine);
}

} // namespace
