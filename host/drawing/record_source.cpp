#include "record_source.h"

#include "drawing/tag_view.h"

namespace zuhost {
namespace {

using dxf::ReadResult;

std::variant<dxf::AsciiReader, dxf::BinaryReader> makeReader(const DrawingState& state, Span span) {
    const std::string_view bytes = std::string_view(state.bytes).substr(span.begin, span.end - span.begin);
    if (state.style.form == DrawingForm::ascii)
        return dxf::AsciiReader(bytes);
    return dxf::BinaryReader(bytes, state.style.byteCodes ? dxf::CodeForm::bytes : dxf::CodeForm::words);
}

std::wstring widened(std::string_view text) {
    return {text.begin(), text.end()};
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
    return TagRef(record.code, record.value, !isAscii()).value(scratch);
}

std::wstring quoted(std::string_view text) {
    constexpr std::size_t kMaxLength = 40;
    std::wstring result = L"\"";
    for (const char c : text.substr(0, kMaxLength))
        result += c >= 0x20 && c < 0x7F ? static_cast<wchar_t>(c) : L'?';
    return result + (text.size() > kMaxLength ? L"...\"" : L"\"");
}

} // namespace zuhost
