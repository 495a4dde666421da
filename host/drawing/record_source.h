#pragma once

#include "drawing_state.h"
#include "dxf_records/record_reader.h"

namespace zuhost {

/// Reads the records of a stretch of a drawing's buffer, in either form. Offsets are those of the buffer.
class RecordSource {
public:
    RecordSource(const DrawingState& state, Span span);

    dxf::ReadResult next(dxf::Record& record);

    /// After an error: where and what.
    [[nodiscard]] std::uint64_t faultOffset() const { return faultOffset_; }
    [[nodiscard]] const std::wstring& fault() const { return fault_; }

    /// Whether the value is what its group code says.
    [[nodiscard]] bool isReadable(const dxf::Record& record) const;
    /// Where a fault of the value is reported: in ASCII drawings the line of the value.
    [[nodiscard]] std::uint64_t valueOffset(const dxf::Record& record) const;

    /// The value of a record as a TagList holds it; `scratch` keeps what is not in the buffer as text.
    std::string_view value(const dxf::Record& record, std::string& scratch) const;

private:
    [[nodiscard]] bool isAscii() const { return std::holds_alternative<dxf::AsciiReader>(reader_); }
    dxf::ReadResult moved(dxf::Record& record) const;
    dxf::ReadResult failAtReader(const dxf::RecordError& error);

    std::variant<dxf::AsciiReader, dxf::BinaryReader> reader_;
    const char* buffer_;
    std::uint64_t start_;
    std::uint64_t faultOffset_ = 0;
    std::wstring fault_;
};

/// Text of the file within a message: cut short, and without what is beyond ASCII.
[[nodiscard]] std::wstring quoted(std::string_view text);

} // namespace zuhost
