#include "tag_extraction.h"

#include "record_source.h"

#include <algorithm>

namespace zuhost {
namespace {

/// Exact in ASCII drawings, where it spares memory: whole drawings may be held as tags.
std::size_t numberOfRecords(const DrawingState& state, Span span) {
    if (state.style.form == DrawingForm::binary)
        return 0;
    const char* const bytes = state.bytes.data();
    const auto lines = std::count(bytes + span.begin, bytes + span.end, state.style.lineEnd.back());
    return static_cast<std::size_t>(lines) / 2;
}

} // namespace

TagList bufferTags(const DrawingState& state, Span span) {
    RecordSource source(state, span);
    TagList tags;
    tags.reserve(numberOfRecords(state, span));
    std::string scratch;
    for (dxf::Record record; source.next(record) == dxf::ReadResult::record;)
        tags.add(record.code, std::string(source.value(record, scratch)));
    return tags;
}

} // namespace zuhost
