#include "record_source.h"

#include "dxf_records/number_text.h"

namespace zuhost {
namespace {

using dxf::ReadResult;
using dxf::ValueType;

std::variant<dxf::AsciiReader, dxf::BinaryReader> makeReader(const DrawingState& state, Span span) {
    const std::string_view bytes = std::string_view(state.bytes).substr(span.begin, span.end - span.begin);
    if (state.style.form == DrawingForm::ascii)
        return dxf::AsciiReader(bytes);
    return dxf::BinaryReader(bytes, state.style.byteCodes ? dxf::CodeForm::bytes : dxf::CodeForm::words);
}

std::wstring widened(std::string_view text) {
    return {text.begin(), text.end()};
}

std::string hexadecimal(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const char c : bytes) {
        text += kDigits[static_cast<unsigned char>(c) >> 4U];
        text += kDigits[static_cast<unsigned char>(c) & 0xFU];
    }
    return text;
}

} // namespace

RecordSource::RecordSource(const DrawingState& state, Span span)
    : reader_(makeReader(state, span)), buffer_(state.bytes.data()), start_(span.begin) {}

ReadResult RecordSource::next(dxf::Record& record) {
    return std::visit(
        [&](auto& reader) {
            const ReadResult result = reader.next(record);
            if (result == ReadResult::record)
                return rebased(record);
            return result == ReadResult::end ? result : failAtReader(reader.error());
        },
        reader_);
}

/// Makes the offsets refer to the buffer.
ReadResult RecordSource::rebased(dxf::Record& record) const {
    record.offset += start_;
    record.end += start_;
    return ReadResult::record;
}

ReadResult RecordSource::failAtReader(const dxf::RecordError& error) {
    faultOffset_ = start_ + error.offset;
    fault_ = widened(error.problem);
    return ReadResult::error;
}

std::uint64_t RecordSource::valueOffset(const dxf::Record& record) const {
    return isAscii() ? static_cast<std::uint64_t>(record.value.data() - buffer_) : record.offset;
}

std::string_view RecordSource::value(const dxf::Record& record, std::string& scratch) const {
    if (isAscii())
        return record.value;
    switch (dxf::valueType(record.code)) {
    case ValueType::real:
        return scratch = formatReal(dxf::binaryReal(record.value));
    case ValueType::int16:
    case ValueType::int32:
    case ValueType::int64:
    case ValueType::boolean:
        return scratch = std::to_string(dxf::binaryInteger(record.value));
    case ValueType::chunk:
        return scratch = hexadecimal(record.value);
    case ValueType::text:
    case ValueType::handle:
    case ValueType::none:
        break;
    }
    return record.value;
}

std::wstring quoted(std::string_view text) {
    constexpr std::size_t kMaxLength = 40;
    std::wstring result = L"\"";
    for (const char c : text.substr(0, kMaxLength))
        result += c >= 0x20 && c < 0x7F ? static_cast<wchar_t>(c) : L'?';
    return result + (text.size() > kMaxLength ? L"...\"" : L"\"");
}

} // namespace zuhost
