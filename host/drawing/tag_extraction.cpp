#include "tag_extraction.h"

#include "record_source.h"

namespace zuhost {

TagList bufferTags(const DrawingState& state, Span span) {
    RecordSource source(state, span);
    TagList tags;
    std::string scratch;
    for (dxf::Record record; source.next(record) == dxf::ReadResult::record;)
        tags.add(record.code, std::string(source.value(record, scratch)));
    return tags;
}

} // namespace zuhost
