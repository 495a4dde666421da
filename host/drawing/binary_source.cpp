#include "binary_source.h"

#include "number_text.h"
#include "value_kind.h"

#include <bit>

namespace zuhost {
namespace {

std::uint64_t littleEndian(std::string_view bytes) {
    std::uint64_t value = 0;
    for (std::size_t i = bytes.size(); i-- > 0;)
        value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
}

std::string hexadecimal(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const char c : bytes) {
        text += digits[static_cast<unsigned char>(c) >> 4];
        text += digits[static_cast<unsigned char>(c) & 0xFU];
    }
    return text;
}

} // namespace

BinarySource::BinarySource(std::string_view bytes, Span span, bool byteCodes)
    : bytes_(bytes.substr(0, span.end)), at_(span.begin), byteCodes_(byteCodes) {}

RecordSource::Result BinarySource::next(Record& record) {
    if (rest() == 0)
        return Result::end;
    const std::size_t start = at_;
    const auto code = readCode();
    const auto size = code ? valueSize(*code) : std::nullopt;
    if (!code)
        return fail(start, L"the file ends within a group code");
    if (valueKind(*code) == ValueKind::unknown)
        return fail(start, L"unknown group code " + std::to_wstring(*code));
    if (!size || *size > rest())
        return fail(start, L"the file ends within the value of group code " + std::to_wstring(*code));
    const ValueKind kind = valueKind(*code);
    const bool counted = kind == ValueKind::chunk;
    const bool terminated = kind == ValueKind::text || kind == ValueKind::handle;
    record.code = *code;
    record.text = bytes_.substr(at_ + (counted ? 1 : 0), *size - (counted || terminated ? 1 : 0));
    record.begin = start;
    at_ += *size;
    record.end = at_;
    if (kind == ValueKind::handle && !parseHandle(record.text))
        return fail(start, L"not a handle (group code " + std::to_wstring(*code) + L")");
    return Result::record;
}

std::optional<int> BinarySource::readCode() {
    std::size_t size = byteCodes_ ? 1 : 2;
    std::size_t skipped = 0;
    if (byteCodes_ && bytes_[at_] == '\xFF') {
        skipped = 1;
        size = 2;
    }
    if (rest() < skipped + size)
        return std::nullopt;
    const std::uint64_t code = littleEndian(bytes_.substr(at_ + skipped, size));
    at_ += skipped + size;
    return static_cast<int>(code);
}

/// Bytes of the value that comes, its terminator or its count included.
std::optional<std::size_t> BinarySource::valueSize(int code) const {
    switch (valueKind(code)) {
    case ValueKind::real:
    case ValueKind::int64:
        return 8;
    case ValueKind::int32:
        return 4;
    case ValueKind::int16:
        return 2;
    case ValueKind::boolean:
        return 1;
    case ValueKind::chunk:
        return rest() == 0 ? std::nullopt
                           : std::optional<std::size_t>(1U + static_cast<unsigned char>(bytes_[at_]));
    case ValueKind::text:
    case ValueKind::handle: {
        const std::size_t end = bytes_.find('\0', at_);
        return end == std::string_view::npos ? std::nullopt : std::optional(end + 1 - at_);
    }
    case ValueKind::unknown:
        break;
    }
    return std::nullopt;
}

RecordSource::Result BinarySource::fail(std::size_t where, std::wstring problem) {
    faultOffset_ = where;
    fault_ = std::move(problem);
    return Result::fault;
}

std::string_view BinarySource::value(const Record& record, std::string& scratch) const {
    const std::uint64_t bits = record.text.size() <= 8 ? littleEndian(record.text) : 0;
    switch (valueKind(record.code)) {
    case ValueKind::real:
        return scratch = formatReal(std::bit_cast<double>(bits));
    case ValueKind::int64:
        return scratch = std::to_string(static_cast<std::int64_t>(bits));
    case ValueKind::int32:
        return scratch = std::to_string(static_cast<std::int32_t>(bits));
    case ValueKind::int16:
        return scratch = std::to_string(static_cast<std::int16_t>(bits));
    case ValueKind::boolean:
        return scratch = std::to_string(bits);
    case ValueKind::chunk:
        return scratch = hexadecimal(record.text);
    case ValueKind::text:
    case ValueKind::handle:
    case ValueKind::unknown:
        break;
    }
    return record.text;
}

} // namespace zuhost
