#include "tag_extraction.h"

#include "record_source.h"

namespace zuhost {

TagList bufferTags(const DrawingState& state, Span span) {
    const auto source = openSource(state, span);
    TagList tags;
    std::string scratch;
    for (Record record; source->next(record) == RecordSource::Result::record;)
        tags.add(record.code, std::string(source->value(record, scratch)));
    return tags;
}

} // namespace zuhost
