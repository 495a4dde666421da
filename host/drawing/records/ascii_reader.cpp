#include "record_reader.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace zuhost::dxf {

namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";

constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

/// A group code: a small decimal number with blanks around it.
bool parseCode(std::string_view line, int& code) {
    std::size_t at = 0;
    while (at < line.size() && isBlank(line[at]))
        ++at;
    const bool negative = at < line.size() && line[at] == '-';
    at += negative ? 1 : 0;
    const std::size_t first = at;
    int value = 0;
    while (at < line.size() && line[at] >= '0' && line[at] <= '9' && at - first < 5)
        value = value * 10 + (line[at++] - '0');
    if (at == first)
        return false;
    while (at < line.size() && isBlank(line[at]))
        ++at;
    code = negative ? -value : value;
    return at == line.size();
}

/// Index of the byte, or `size`. Lines are short, so the first bytes are looked at eight at a time before the
/// library's search is worth its call.
std::size_t findByte(const char* bytes, std::size_t size, char wanted) {
    constexpr std::size_t kStep = sizeof(std::uint64_t);
    constexpr std::uint64_t kOnes = 0x0101010101010101U;
    constexpr std::uint64_t kHighBits = 0x8080808080808080U;
    std::size_t at = 0;
    if constexpr (std::endian::native == std::endian::little) {
        const std::uint64_t pattern = kOnes * static_cast<unsigned char>(wanted);
        for (; at + kStep <= size && at < 4 * kStep; at += kStep) {
            std::uint64_t word = 0;
            std::memcpy(&word, bytes + at, kStep);
            word ^= pattern;
            const std::uint64_t zeros = (word - kOnes) & ~word & kHighBits;
            if (zeros != 0)
                return at + static_cast<std::size_t>(std::countr_zero(zeros)) / kStep;
        }
    }
    const void* const found = at < size ? std::memchr(bytes + at, wanted, size - at) : nullptr;
    return found != nullptr ? static_cast<std::size_t>(static_cast<const char*>(found) - bytes) : size;
}

} // namespace

AsciiReader::AsciiReader(std::string_view bytes) : bytes_(bytes) {
    if (bytes_.starts_with(kMark))
        at_ = kMark.size();
    if (bytes_.find('\n') == std::string_view::npos)
        lineEnd_ = '\r';
}

bool AsciiReader::takeLine(std::string_view& line) {
    if (at_ >= bytes_.size())
        return false;
    const char* const start = bytes_.data() + at_;
    const std::size_t left = bytes_.size() - at_;
    const std::size_t found = findByte(start, left, lineEnd_);
    at_ += std::min(found + 1, left);
    ++line_;
    const std::size_t length = found > 0 && start[found - 1] == '\r' ? found - 1 : found;
    line = {start, length};
    return true;
}

/// The usual line, blanks, up to four digits and the line's end, without looking for that end first.
bool AsciiReader::takePlainCode(int& code) {
    const char* const start = bytes_.data() + at_;
    const char* const end = bytes_.data() + bytes_.size();
    const char* at = start;
    while (at != end && *at == ' ')
        ++at;
    const char* const digits = at;
    int value = 0;
    while (at != end && *at >= '0' && *at <= '9' && at - digits < 4)
        value = value * 10 + (*at++ - '0');
    if (at == digits)
        return false;
    if (at != end && *at == '\r' && lineEnd_ == '\n')
        ++at;
    if (at == end || *at != lineEnd_)
        return false;
    code = value;
    at_ += static_cast<std::size_t>(at + 1 - start);
    ++line_;
    return true;
}

bool AsciiReader::takeCode(int& code, std::string_view& line) {
    return takePlainCode(code) || (takeLine(line) && parseCode(line, code));
}

ReadResult AsciiReader::failAtCode(std::size_t offset, std::string_view line) {
    // Blank lines and the end mark of old systems may follow the last record.
    const bool onlyRemains = line.find_first_not_of(" \t\x1a") == std::string_view::npos &&
                             bytes_.find_first_not_of(" \t\r\n\x1a", at_) == std::string_view::npos;
    if (onlyRemains)
        return ReadResult::end;
    return fail(offset, line_, "the group code is no number", at_ == bytes_.size());
}

ReadResult AsciiReader::fail(std::size_t offset, std::uint64_t line, std::string_view problem,
                             bool incomplete) {
    error_ = {offset, line, problem, incomplete};
    at_ = bytes_.size();
    return ReadResult::error;
}

ReadResult AsciiReader::next(Record& record) {
    const std::size_t offset = at_;
    if (offset >= bytes_.size())
        return ReadResult::end;
    std::string_view codeLine;
    std::string_view value;
    int code = 0;
    if (!takeCode(code, codeLine))
        return failAtCode(offset, codeLine);
    const std::uint64_t line = line_;
    if (!takeLine(value))
        return fail(offset, line, "the file ends between a group code and its value", true);
    record = {code, value, offset, at_, line};
    return ReadResult::record;
}

} // namespace zuhost::dxf
