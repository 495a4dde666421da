#include "record_writer.h"

#include "dxf_records/number_text.h"
#include "dxf_records/value_type.h"

#include <array>
#include <bit>
#include <charconv>
#include <limits>

namespace zuhost {
namespace {

void appendLittleEndian(std::string& bytes, std::uint64_t value, int size) {
    for (int i = 0; i < size; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
}

template <typename Integer>
bool appendInteger(std::string& bytes, std::string_view text) {
    const auto value = parseInteger(text);
    if (!value || *value < std::numeric_limits<Integer>::min() ||
        *value > std::numeric_limits<Integer>::max())
        return false;
    appendLittleEndian(bytes, static_cast<std::uint64_t>(*value), sizeof(Integer));
    return true;
}

bool appendReal(std::string& bytes, std::string_view text) {
    const auto value = parseReal(text);
    if (!value)
        return false;
    appendLittleEndian(bytes, std::bit_cast<std::uint64_t>(*value), sizeof(double));
    return true;
}

bool appendText(std::string& bytes, std::string_view text) {
    if (text.find('\0') != std::string_view::npos)
        return false;
    bytes += text;
    bytes += '\0';
    return true;
}

bool appendChunk(std::string& bytes, std::string_view digits) {
    constexpr std::size_t kMaxBytes = 255;
    if (digits.size() % 2 != 0 || digits.size() / 2 > kMaxBytes)
        return false;
    std::string chunk(1, static_cast<char>(digits.size() / 2));
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        unsigned value = 0;
        const char* const end = digits.data() + i + 2;
        const auto [stop, error] = std::from_chars(digits.data() + i, end, value, 16);
        if (error != std::errc{} || stop != end)
            return false;
        chunk += static_cast<char>(value);
    }
    bytes += chunk;
    return true;
}

std::string withoutLineEnds(std::string_view value) {
    std::string result;
    for (const char c : value) {
        if (c != '\r' && c != '\n')
            result += c;
        else
            result += c == '\n' ? "^J" : "^M";
    }
    return result;
}

bool appendBinaryValue(std::string& bytes, int code, std::string_view value) {
    switch (dxf::valueType(code)) {
    case dxf::ValueType::real:
        return appendReal(bytes, value);
    case dxf::ValueType::int64:
        return appendInteger<std::int64_t>(bytes, value);
    case dxf::ValueType::int32:
        return appendInteger<std::int32_t>(bytes, value);
    case dxf::ValueType::int16:
        return appendInteger<std::int16_t>(bytes, value);
    case dxf::ValueType::boolean:
        return appendInteger<std::uint8_t>(bytes, value);
    case dxf::ValueType::chunk:
        return appendChunk(bytes, value);
    case dxf::ValueType::text:
    case dxf::ValueType::handle:
        return appendText(bytes, value);
    case dxf::ValueType::none:
        break;
    }
    return false;
}

} // namespace

bool RecordWriter::append(std::string& bytes, int code, std::string_view value) const {
    if (style_.form == DrawingForm::binary)
        return appendBinary(bytes, code, value);
    appendAscii(bytes, code, value);
    return true;
}

/// Line ends within a value are written in caret notation: they would split the record.
void RecordWriter::appendAscii(std::string& bytes, int code, std::string_view value) const {
    std::array<char, 12> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), code);
    const auto size = static_cast<std::size_t>(end - digits.data());
    bytes.append(size < style_.codeWidth ? style_.codeWidth - size : 0, ' ');
    bytes.append(digits.data(), size) += style_.lineEnd;
    const bool plain = value.find_first_of("\r\n") == std::string_view::npos;
    (plain ? bytes += value : bytes += withoutLineEnds(value)) += style_.lineEnd;
}

bool RecordWriter::appendBinary(std::string& bytes, int code, std::string_view value) const {
    const std::size_t before = bytes.size();
    if (appendBinaryCode(bytes, code) && appendBinaryValue(bytes, code, value))
        return true;
    bytes.resize(before);
    return false;
}

bool RecordWriter::appendBinaryCode(std::string& bytes, int code) const {
    constexpr int kLongCode = 255;
    if (code < 0 || code > dxf::kLargestKnownCode)
        return false;
    if (style_.byteCodes && code >= kLongCode)
        bytes += static_cast<char>(kLongCode);
    appendLittleEndian(bytes, static_cast<std::uint64_t>(code), style_.byteCodes && code < kLongCode ? 1 : 2);
    return true;
}

} // namespace zuhost
