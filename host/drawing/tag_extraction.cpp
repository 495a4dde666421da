#include "tag_extraction.h"

#include "dxf_records/number_text.h"
#include "new_records.h"
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

/// The place of the first readable handle before the subclasses, outside of application groups; else of the
/// first unreadable one.
std::size_t handlePlace(const TagList& tags, int code) {
    std::size_t unreadable = tags.size();
    bool inGroup = false;
    for (std::size_t i = 0; i < tags.size() && tags[i].code != 100; ++i) {
        if (tags[i].code == 102)
            inGroup = tags[i].value.starts_with('{');
        if (tags[i].code != code || inGroup)
            continue;
        const auto handle = parseHandle(tags[i].value);
        if (handle && *handle != 0)
            return i;
        if (!handle)
            unreadable = std::min(unreadable, i);
    }
    return unreadable;
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

TagList objectTags(const DrawingState& state, const AcDbStub& stub) {
    TagList tags = bufferTags(state, {stub.offset, stub.offset + stub.length});
    if (!stub.replacesHandle)
        return tags;
    const std::size_t place = handlePlace(tags, handleCode(state, stub));
    if (place < tags.size())
        tags[place].value = formatHandle(stub.handle);
    return tags;
}

} // namespace zuhost
