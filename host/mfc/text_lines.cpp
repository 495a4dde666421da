#include "zuhost/text_file.h"

#include <algorithm>
#include <stdexcept>

namespace zuhost {

namespace {

constexpr std::string_view kWideLineFeed("\n\0", 2);
constexpr char kControlZ = 0x1A;
constexpr std::size_t kFirstBuffer = std::size_t{1} << 17U;

void checkLength(std::size_t length) {
    if (length > TextLines::kLongestLine)
        throw std::length_error("a line is too long");
}

} // namespace

std::optional<std::string_view> TextLines::next() {
    if (buffer_.empty())
        start();
    std::size_t searched = 0;
    while (true) {
        const std::string_view left(buffer_.data() + at_, end_ - at_);
        if (const std::size_t feed = lineFeed(left, searched); feed != std::string_view::npos)
            return take(feed, encoding_.unit());
        if (complete_)
            return left.empty() ? std::nullopt : std::optional(take(left.size(), 0));
        checkLength(left.size());
        searched = left.size() - left.size() % encoding_.unit();
        readMore();
    }
}

std::size_t TextLines::lineFeed(std::string_view bytes, std::size_t from) const {
    std::size_t at = bytes.find('\n', from);
    if (encoding_.unit() == 1)
        return at;
    // Half of one character and half of the next are no line feed.
    while (at != std::string_view::npos && (at % 2 != 0 || bytes.substr(at, 2) != kWideLineFeed))
        at = bytes.find('\n', at + 1);
    return at;
}

std::string_view TextLines::take(std::size_t length, std::size_t lineEnd) {
    checkLength(length);
    const std::string_view line(buffer_.data() + at_, length);
    at_ += length + lineEnd;
    const std::size_t unit = encoding_.unit();
    const bool carriageReturn = lineEnd != 0 && length >= unit && line[length - unit] == '\r' &&
                                (unit == 1 || line[length - 1] == '\0');
    return line.substr(0, carriageReturn ? length - unit : length);
}

void TextLines::start() {
    buffer_.resize(kFirstBuffer);
    readInto(0);
    encoding_ = TextEncoding::of({buffer_.data(), end_});
    at_ = encoding_.mark().size();
    endAtControlZ(at_);
}

void TextLines::readMore() {
    const std::size_t left = end_ - at_;
    std::copy(buffer_.data() + at_, buffer_.data() + end_, buffer_.data());
    at_ = 0;
    if (left > buffer_.size() / 2)
        buffer_.resize(buffer_.size() * 2);
    readInto(left);
    endAtControlZ(left);
}

void TextLines::readInto(std::size_t from) {
    const std::size_t count = source_(buffer_.data() + from, buffer_.size() - from);
    end_ = from + count;
    complete_ = end_ < buffer_.size();
}

void TextLines::endAtControlZ(std::size_t from) {
    const std::string_view bytes(buffer_.data() + from, end_ - from);
    const std::size_t found = encoding_.unit() == 1 ? bytes.find(kControlZ) : std::string_view::npos;
    if (found == std::string_view::npos)
        return;
    end_ = from + found;
    complete_ = true;
}

} // namespace zuhost
