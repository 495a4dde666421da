#include "ascii_source.h"

#include "number_text.h"
#include "value_kind.h"

#include <cstring>

namespace zuhost {
namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isHexDigit(char c) {
    return isDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

const char* skipBlanks(const char* p, const char* end) {
    while (p != end && (*p == ' ' || *p == '\t'))
        ++p;
    return p;
}

const char* skipDigits(const char* p, const char* end) {
    while (p != end && isDigit(*p))
        ++p;
    return p;
}

/// The usual spelling of a number, "-12.5e+3", seen at a glance; others are left to the parser.
bool looksReal(std::string_view text) {
    const char* p = text.data();
    const char* const end = p + text.size();
    p = skipBlanks(p, end);
    if (p != end && *p == '-')
        ++p;
    const char* const digits = p;
    p = skipDigits(p, end);
    if (p == digits)
        return false;
    if (p != end && *p == '.')
        p = skipDigits(p + 1, end);
    if (p == end)
        return true;
    if (*p != 'e' && *p != 'E')
        return false;
    ++p;
    if (p != end && (*p == '-' || *p == '+'))
        ++p;
    const char* const exponent = p;
    p = skipDigits(p, end);
    return p == end && p != exponent;
}

bool looksInteger(std::string_view text) {
    constexpr std::ptrdiff_t safeDigits = 18;
    const char* p = text.data();
    const char* const end = p + text.size();
    p = skipBlanks(p, end);
    if (p != end && *p == '-')
        ++p;
    const char* const digits = p;
    p = skipDigits(p, end);
    return p == end && p != digits && p - digits <= safeDigits;
}

bool looksHandle(std::string_view text) {
    if (text.empty() || text.size() > 16)
        return false;
    for (const char c : text)
        if (!isHexDigit(c))
            return false;
    return true;
}

bool isReadable(ValueKind kind, std::string_view text) {
    switch (kind) {
    case ValueKind::real:
        return looksReal(text) || parseReal(text);
    case ValueKind::int16:
    case ValueKind::int32:
    case ValueKind::int64:
    case ValueKind::boolean:
        return looksInteger(text) || parseInteger(text);
    case ValueKind::handle:
        return looksHandle(text) || parseHandle(text);
    case ValueKind::text:
    case ValueKind::chunk:
    case ValueKind::unknown:
        break;
    }
    return true;
}

const wchar_t* kindName(ValueKind kind) {
    switch (kind) {
    case ValueKind::real:
        return L"number";
    case ValueKind::handle:
        return L"handle";
    default:
        return L"integer";
    }
}

std::wstring quotedAscii(std::string_view text) {
    constexpr std::size_t longest = 40;
    std::wstring result = L"\"";
    for (const char c : text.substr(0, longest))
        result += c >= 0x20 && c < 0x7F ? static_cast<wchar_t>(c) : L'?';
    return result + (text.size() > longest ? L"...\"" : L"\"");
}

} // namespace

AsciiSource::AsciiSource(std::string_view bytes, Span span, char lineEnd)
    : begin_(bytes.data()), at_(begin_ + span.begin), end_(begin_ + span.end), lineEnd_(lineEnd) {}

RecordSource::Result AsciiSource::next(Record& record) {
    if (at_ == end_)
        return Result::end;
    const char* const start = at_;
    if (!readCode(record.code))
        return fail(start, L"a group code expected, not " + quotedAscii(line(start)));
    if (at_ == end_)
        return Result::end;
    record.text = line(at_);
    record.begin = static_cast<std::uint64_t>(start - begin_);
    const ValueKind kind = valueKind(record.code);
    if (!isReadable(kind, record.text))
        return fail(at_, std::wstring(L"not ") +
                             (kind == ValueKind::real || kind == ValueKind::handle ? L"a " : L"an ") +
                             kindName(kind) + L": " + quotedAscii(record.text) + L" (group code " +
                             std::to_wstring(record.code) + L")");
    at_ = lineStop_ == end_ ? end_ : lineStop_ + 1;
    record.end = static_cast<std::uint64_t>(at_ - begin_);
    return Result::record;
}

/// The line that starts there, without its end; notes where it stops.
std::string_view AsciiSource::line(const char* start) {
    const void* const found = std::memchr(start, lineEnd_, static_cast<std::size_t>(end_ - start));
    lineStop_ = found ? static_cast<const char*>(found) : end_;
    const bool carriageReturn = lineStop_ != start && lineEnd_ == '\n' && lineStop_[-1] == '\r';
    return {start, static_cast<std::size_t>(lineStop_ - start) - (carriageReturn ? 1 : 0)};
}

/// Reads the line of a group code and goes behind it.
bool AsciiSource::readCode(int& code) {
    constexpr std::ptrdiff_t mostDigits = 5;
    const char* p = skipBlanks(at_, end_);
    const bool negative = p != end_ && *p == '-';
    p += negative ? 1 : 0;
    const char* const digits = p;
    int value = 0;
    while (p != end_ && isDigit(*p) && p - digits < mostDigits)
        value = value * 10 + (*p++ - '0');
    if (p == digits)
        return false;
    p = skipBlanks(p, end_);
    if (p != end_ && *p == '\r' && lineEnd_ == '\n')
        ++p;
    if (p != end_ && *p++ != lineEnd_)
        return false;
    code = negative ? -value : value;
    at_ = p;
    return true;
}

RecordSource::Result AsciiSource::fail(const char* where, std::wstring problem) {
    faultOffset_ = static_cast<std::uint64_t>(where - begin_);
    fault_ = std::move(problem);
    return Result::fault;
}

std::string_view AsciiSource::value(const Record& record, std::string&) const {
    return record.text;
}

} // namespace zuhost
