#pragma once

#include "drawing_state.h"
#include "dxf_records/record_reader.h"

namespace zuhost {

/// Reads the records of a stretch of a drawing's buffer, in either form, and checks their values. Offsets are
/// those of the buffer.
class RecordSource {
public:
    RecordSource(const DrawingState& state, Span span);

    dxf::ReadResult next(dxf::Record& record);

    /// After an error: where and what.
    [[nodiscard]] std::uint64_t faultOffset() const { return faultOffset_; }
    [[nodiscard]] const std::wstring& fault() const { return fault_; }

    /// The value of a record as a TagList holds it; `scratch` keeps what is not in the buffer as text.
    std::string_view value(const dxf::Record& record, std::string& scratch) const;

private:
    dxf::ReadResult moved(dxf::Record& record) const;
    dxf::ReadResult failAtReader(const dxf::RecordError& error);
    dxf::ReadResult failAtValue(const dxf::Record& record);

    std::variant<dxf::AsciiReader, dxf::BinaryReader> reader_;
    const char* buffer_;
    std::uint64_t start_;
    std::uint64_t faultOffset_ = 0;
    std::wstring fault_;
};

/// Text of the file within a message: cut short, and without what is beyond ASCII.
[[nodiscard]] std::wstring quoted(std::string_view text);

} // namespace zuhost
