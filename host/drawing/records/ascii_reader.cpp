#include "record_reader.h"

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
    const void* const found = std::memchr(start, lineEnd_, left);
    std::size_t length =
        found != nullptr ? static_cast<std::size_t>(static_cast<const char*>(found) - start) : left;
    at_ += length + (found != nullptr ? 1 : 0);
    ++line_;
    if (length > 0 && start[length - 1] == '\r')
        --length;
    line = {start, length};
    return true;
}

ReadResult AsciiReader::fail(std::size_t offset, std::uint64_t line, std::string_view problem) {
    error_ = {offset, line, problem};
    at_ = bytes_.size();
    return ReadResult::error;
}

ReadResult AsciiReader::next(Record& record) {
    const std::size_t offset = at_;
    std::string_view codeLine;
    std::string_view value;
    int code = 0;
    if (!takeLine(codeLine))
        return ReadResult::end;
    const std::uint64_t line = line_;
    if (!parseCode(codeLine, code)) {
        // Blank lines and the end mark of old systems may follow the last record.
        const bool onlyRemains = codeLine.find_first_not_of(" \t\x1a") == std::string_view::npos &&
                                 bytes_.find_first_not_of(" \t\r\n\x1a", at_) == std::string_view::npos;
        return onlyRemains ? ReadResult::end : fail(offset, line, "the group code is no number");
    }
    if (!takeLine(value))
        return fail(offset, line, "the file ends between a group code and its value");
    record = {code, value, offset, at_, line};
    return ReadResult::record;
}

} // namespace zuhost::dxf
