#include "dxf_records/record_reader.h"

#include "dxf_records/scan_record.h"

#include <algorithm>
#include <array>

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

constexpr unsigned char kNoCodeDigit = 0xFF;

/// The digit that a character of a group code stands for; a blank before the others counts as 0.
constexpr auto kCodeDigits = [] {
    std::array<unsigned char, 256> digits{};
    digits.fill(kNoCodeDigit);
    digits[' '] = 0;
    for (unsigned char i = 0; i < 10; ++i)
        digits['0' + std::size_t{i}] = i;
    return digits;
}();

/// Scans a group code of three characters, blanks first, or of four digits, and its line end. Faster than
/// detail::scanCode for such codes, which most drawings have, but slower where values are converted between
/// them.
const char* scanPaddedCode(const char* at, const char* end, int& code) {
    constexpr std::ptrdiff_t kLongest = 6; // with CR LF
    if (end - at < kLongest || (at[0] != ' ' && at[1] == ' ') || at[2] == ' ')
        return nullptr;
    const auto digit = [at](std::size_t i) { return kCodeDigits[static_cast<unsigned char>(at[i])]; };
    const unsigned hundreds = digit(0);
    const unsigned tens = digit(1);
    const unsigned ones = digit(2);
    if ((hundreds | tens | ones) == kNoCodeDigit)
        return nullptr;
    code = static_cast<int>(hundreds * 100 + tens * 10 + ones);
    at += 3;
    if (const unsigned next = static_cast<unsigned char>(*at - '0'); next < 10) {
        code = code * 10 + static_cast<int>(next);
        ++at;
    }
    at += *at == '\r' ? 1 : 0;
    return *at == '\n' ? at + 1 : nullptr;
}

} // namespace

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

bool AsciiReader::nextFast(Record& record) {
    if (lineEnd_ != '\n')
        return false;
    const char* const start = bytes_.data();
    const char* const end = start + bytes_.size();
    int code = 0;
    const char* value = scanPaddedCode(start + at_, end, code);
    if (value == nullptr)
        value = detail::scanCode(start + at_, end, code);
    const ScannedRecord scanned = detail::scanValue(value, end, code);
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
