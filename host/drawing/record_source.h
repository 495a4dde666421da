#pragma once

#include "drawing_state.h"
#include "dxf_records/record_reader.h"
#include "value_check.h"

namespace zuhost {

/// Reads the records of a span of a drawing's buffer, in either form. Offsets refer to the buffer.
class RecordSource {
public:
    RecordSource(const DrawingState& state, Span span);

    dxf::ReadResult next(dxf::Record& record);

    /// After an error: its offset and description.
    [[nodiscard]] std::uint64_t faultOffset() const { return faultOffset_; }
    [[nodiscard]] const std::wstring& fault() const { return fault_; }

    /// Returns whether the value has the type that its group code demands.
    [[nodiscard]] bool isReadable(const dxf::Record& record) const {
        const bool isText = isAscii() || dxf::valueType(record.code) == dxf::ValueType::handle;
        return !isText || zuhost::isReadable(record.code, record.value);
    }
    /// Returns the offset for faults of the value: in ASCII drawings that of the value, which has its own
    /// line.
    [[nodiscard]] std::uint64_t valueOffset(const dxf::Record& record) const;

    /// Returns the value as a TagList holds it: in the buffer, or formatted into `scratch`.
    std::string_view value(const dxf::Record& record, std::string& scratch) const;

private:
    [[nodiscard]] bool isAscii() const { return std::holds_alternative<dxf::AsciiReader>(reader_); }
    dxf::ReadResult rebased(dxf::Record& record) const;
    dxf::ReadResult failAtReader(const dxf::RecordError& error);

    std::variant<dxf::AsciiReader, dxf::BinaryReader> reader_;
    const char* buffer_;
    std::uint64_t start_;
    std::uint64_t faultOffset_ = 0;
    std::wstring fault_;
};

/// Quotes text of the file for a message: truncated, with "?" for characters other than printable ASCII.
[[nodiscard]] std::wstring quoted(std::string_view text);

} // namespace zuhost
