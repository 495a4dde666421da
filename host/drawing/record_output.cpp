#include "record_output.h"

#include "record_source.h"

namespace zuhost {
namespace {

constexpr std::size_t kFlushSize = 1 << 18;

} // namespace

RecordOutput::RecordOutput(const DrawingState& state, const RecordStyle& style, ByteSink sink)
    : state_(state), sameForm_(style.form == state.style.form), writer_(style), sink_(std::move(sink)) {}

void RecordOutput::copy(Span span) {
    if (sameForm_)
        raw(std::string_view(state_.bytes).substr(span.begin, span.end - span.begin));
    else
        convert(span);
}

/// Converts a value to the other form: only binary drawings have line ends within texts.
std::string_view RecordOutput::converted(int code, std::string_view value, std::string& scratch) const {
    const dxf::ValueType type = dxf::valueType(code);
    const bool isText = type == dxf::ValueType::text || type == dxf::ValueType::handle;
    const bool toBinary = converts() && state_.style.form == DrawingForm::ascii;
    if (!toBinary || !isText || value.find('^') == std::string_view::npos)
        return value;
    return scratch = state_.encoding.withLineEnds(value);
}

void RecordOutput::convert(Span span) {
    RecordSource source(state_, span);
    std::string scratch;
    for (dxf::Record next; fault_.empty() && source.next(next) == dxf::ReadResult::record;)
        record(next.code, source.value(next, scratch));
}

void RecordOutput::record(int code, std::string_view value) {
    if (!fault_.empty())
        return;
    std::string scratch;
    if (!writer_.append(pending_, code, converted(code, value, scratch))) {
        fault_ = L"the form cannot hold " + quoted(value) + L" as the value of group code " +
                 std::to_wstring(code);
    }
    if (pending_.size() >= kFlushSize)
        flush();
}

void RecordOutput::records(const TagList& tags) {
    for (const Tag& tag : tags)
        record(tag.code, tag.value);
}

void RecordOutput::raw(std::string_view bytes) {
    if (pending_.size() + bytes.size() >= kFlushSize) {
        flush();
        sink_(bytes);
    } else {
        pending_ += bytes;
    }
}

void RecordOutput::flush() {
    if (!pending_.empty())
        sink_(pending_);
    pending_.clear();
}

} // namespace zuhost
