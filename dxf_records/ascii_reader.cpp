#include "dxf_records/record_reader.h"

#include "dxf_records/scan_record.h"

#include <algorithm>

namespace zuhost::dxf {

namespace {

constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

/// Parses a group code, a decimal number of up to five digits with blanks around it.
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

ScannedRecord scanUnpaddedRecord(const char* at, const char* end) {
    return scanAsciiRecord(at, end);
}

char lineEndOf(std::string_view bytes) {
    return bytes.find('\n') != std::string_view::npos ? '\n' : '\r';
}

AsciiReader::AsciiReader(std::string_view bytes) : AsciiReader(bytes, lineEndOf(bytes)) {
    if (bytes_.starts_with(kByteOrderMark))
        at_ = kByteOrderMark.size();
}

bool AsciiReader::readLine(std::string_view& line) {
    if (at_ >= bytes_.size())
        return false;
    const char* const start = bytes_.data() + at_;
    const std::size_t left = bytes_.size() - at_;
    const auto found = static_cast<std::size_t>(findByte(start, start + left, lineEnd_) - start);
    at_ += std::min(found + 1, left);
    ++line_;
    const std::size_t length = found > 0 && start[found - 1] == '\r' ? found - 1 : found;
    line = {start, length};
    return true;
}

ReadResult AsciiReader::failAtCode(std::size_t offset, std::string_view line) {
    // Blank lines and Ctrl-Z, the end mark of old systems, may follow the last record.
    const bool onlyRemains = line.find_first_not_of(" \t\x1a") == std::string_view::npos &&
                             bytes_.find_first_not_of(" \t\r\n\x1a", at_) == std::string_view::npos;
    if (onlyRemains)
        return ReadResult::end;
    return fail(offset, line_, "the group code is not a number", at_ == bytes_.size());
}

ReadResult AsciiReader::fail(std::size_t offset, std::uint64_t line, std::string_view problem,
                             bool incomplete) {
    error_ = {offset, line, problem, incomplete};
    at_ = bytes_.size();
    return ReadResult::error;
}

inline bool AsciiReader::nextFast(Record& record) {
    if (lineEnd_ != '\n')
        return false;
    const char* const start = bytes_.data();
    const char* const end = start + bytes_.size();
    const ScannedRecord scanned = scanPaddedRecord(start + at_, end);
    if (scanned.end == nullptr)
        return false;
    const std::size_t offset = at_;
    at_ = static_cast<std::size_t>(scanned.end - start);
    record = {scanned.code, scanned.value, offset, at_, line_ + 1};
    line_ += 2;
    return true;
}

ReadResult AsciiReader::next(Record& record) {
    const std::size_t offset = at_;
    if (offset >= bytes_.size())
        return ReadResult::end;
    if (nextFast(record))
        return ReadResult::record;
    std::string_view codeLine;
    std::string_view value;
    int code = 0;
    if (!readLine(codeLine) || !parseCode(codeLine, code))
        return failAtCode(offset, codeLine);
    const std::uint64_t line = line_;
    if (!readLine(value))
        return fail(offset, line, "the file ends between a group code and its value", true);
    record = {code, value, offset, at_, line};
    return ReadResult::record;
}

} // namespace zuhost::dxf
