#pragma once

#include "drawing_state.h"
#include "record_writer.h"

#include <functional>

namespace zuhost {

/// Receives the bytes of a saved drawing.
using ByteSink = std::function<void(std::string_view)>;

/// Buffers and forwards the records of a drawing, one by one or as spans of the buffer. A value that the form
/// cannot hold ends the output; `fault` then describes it.
class RecordOutput {
public:
    /// Writes in the style. Spans are copied when it has the form of the buffer, else converted.
    RecordOutput(const DrawingState& state, const RecordStyle& style, ByteSink sink);

    /// Returns whether records change their form.
    [[nodiscard]] bool converts() const { return !sameForm_; }

    /// Writes the records of a span.
    void copy(Span span);
    /// Writes one record, with a value as in a TagList.
    void record(int code, std::string_view value);
    void records(const TagList& tags);
    /// Writes bytes verbatim.
    void raw(std::string_view bytes);
    /// Forwards the buffered bytes.
    void flush();

    [[nodiscard]] const std::wstring& fault() const { return fault_; }

private:
    void convert(Span span);
    [[nodiscard]] std::string_view converted(int code, std::string_view value, std::string& scratch) const;

    const DrawingState& state_;
    bool sameForm_;
    RecordWriter writer_;
    ByteSink sink_;
    std::string pending_;
    std::wstring fault_;
};

} // namespace zuhost
