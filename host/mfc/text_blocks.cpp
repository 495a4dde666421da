#include "zuhost/text_file.h"

#include <algorithm>
#include <stdexcept>

namespace zuhost {

namespace {

constexpr std::string_view kWideLineFeed("\n\0", 2);
constexpr char kControlZ = 0x1A;

// In UTF-16, bytes of two adjacent characters may look like a line feed.
bool isLineFeed(std::string_view bytes, std::size_t at, std::size_t unit) {
    return unit == 1 || (at % 2 == 0 && bytes.substr(at, 2) == kWideLineFeed);
}

std::size_t firstLineFeed(std::string_view bytes, std::size_t unit) {
    std::size_t at = bytes.find('\n');
    while (at != std::string_view::npos && !isLineFeed(bytes, at, unit))
        at = bytes.find('\n', at + 1);
    return at;
}

/// Returns the number of bytes up to and including the last line feed; 0 when there is none.
std::size_t sizeOfWholeLines(std::string_view bytes, std::size_t unit) {
    for (std::size_t at = bytes.rfind('\n'); at != std::string_view::npos; at = bytes.rfind('\n', at - 1)) {
        if (isLineFeed(bytes, at, unit))
            return at + unit;
        if (at == 0)
            break;
    }
    return 0;
}

void checkLength(std::size_t length) {
    if (length > TextBlocks::kLongestLine)
        throw std::length_error("a line is too long");
}

std::string_view withoutCarriageReturn(std::string_view line, std::size_t unit) {
    const std::string_view carriageReturn("\r\0", unit);
    return line.ends_with(carriageReturn) ? line.substr(0, line.size() - unit) : line;
}

} // namespace

std::optional<std::string_view> TextBlock::next() {
    const std::string_view bytes = left();
    if (bytes.empty())
        return std::nullopt;
    const std::size_t unit = encoding_.unit();
    const std::size_t feed = firstLineFeed(bytes, unit);
    if (feed == std::string_view::npos) {
        at_ = end_;
        return bytes;
    }
    at_ += feed + unit;
    return withoutCarriageReturn(bytes.substr(0, feed), unit);
}

void TextBlock::reserve(std::size_t room) {
    if (room <= room_)
        return;
    auto bytes = std::make_unique_for_overwrite<char[]>(room);
    std::copy_n(bytes_.get(), end_, bytes.get());
    bytes_ = std::move(bytes);
    room_ = room;
}

bool TextBlocks::next(TextBlock& block, std::size_t size) {
    block.at_ = 0;
    block.end_ = 0;
    if (complete_)
        return false;
    block.reserve(std::max(size, rest_.size() * 2));
    block.end_ = rest_.copy(block.bytes_.get(), rest_.size());
    readInto(block);
    while (!complete_ && !keepWholeLines(block)) {
        checkLength(block.left().size());
        block.reserve(block.room_ * 2);
        readInto(block);
    }
    // Lines after the first are shorter than the limit: a block ends before another one that is too long.
    checkLength(std::min(firstLineFeed(block.left(), encoding_->unit()), block.left().size()));
    block.encoding_ = *encoding_;
    block.last_ = complete_;
    return !block.atEnd();
}

void TextBlocks::readInto(TextBlock& block) {
    const std::size_t before = block.end_;
    block.end_ += source_(block.bytes_.get() + before, block.room_ - before);
    complete_ = block.end_ < block.room_;
    const std::string_view bytes(block.bytes_.get() + before, block.end_ - before);
    if (!encoding_) {
        encoding_ = TextEncoding::of(bytes);
        block.at_ = encoding_->mark().size();
    }
    const std::size_t end = encoding_->unit() == 1 ? bytes.find(kControlZ) : std::string_view::npos;
    if (end != std::string_view::npos) {
        block.end_ = before + end;
        complete_ = true;
    }
}

bool TextBlocks::keepWholeLines(TextBlock& block) {
    const std::string_view bytes = block.left();
    const std::size_t whole = sizeOfWholeLines(bytes, encoding_->unit());
    if (whole == 0)
        return false;
    rest_ = bytes.substr(whole);
    block.end_ = block.at_ + whole;
    return true;
}

} // namespace zuhost
