#pragma once

#include "drawing_state.h"
#include "record_writer.h"

#include <functional>

namespace zuhost {

/// Where the bytes of a saved drawing go.
using ByteSink = std::function<void(std::string_view)>;

/// Where a drawing is written to, record by record or in stretches of the buffer. A value that the form
/// cannot hold stops the output; `fault` then tells which.
class RecordOutput {
public:
    /// Output in the style; stretches are copied when that is the buffer's own, else converted.
    RecordOutput(const DrawingState& state, const RecordStyle& style, ByteSink sink);

    /// Whether the buffer's records change their form.
    [[nodiscard]] bool converts() const { return !sameForm_; }

    /// Records of the buffer.
    void copy(Span span);
    /// One record, its value as in a TagList.
    void record(int code, std::string_view value);
    void records(const TagList& tags);
    /// Bytes that are no records.
    void raw(std::string_view bytes);
    /// Hands over what is gathered.
    void finish();

    [[nodiscard]] const std::wstring& fault() const { return fault_; }

private:
    void convert(Span span);
    [[nodiscard]] std::string_view converted(int code, std::string_view value, std::string& scratch) const;
    void flush();

    const DrawingState& state_;
    bool sameForm_;
    RecordWriter writer_;
    ByteSink sink_;
    std::string pending_;
    std::wstring fault_;
};

} // namespace zuhost
