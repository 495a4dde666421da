#include "object_tags.h"

#include "dxf_records/number_text.h"

#include <algorithm>

namespace zuhost {
namespace {

constexpr int kFirstVersionWithSubclasses = 1012;

bool hasSubclasses(const DrawingState& state) {
    return state.version >= kFirstVersionWithSubclasses;
}

void addMarker(const DrawingState& state, TagList& tags, const char* marker) {
    if (hasSubclasses(state))
        tags.add(100, marker);
}

void addHandle(const DrawingState& state, const AcDbStub& stub, TagList& tags) {
    if (!stub.hasInternalHandle)
        tags.add(handleCode(state, stub), formatHandle(stub.handle));
}

void addOwner(const DrawingState& state, const AcDbStub& stub, TagList& tags) {
    if (hasSubclasses(state))
        tags.add(330, formatHandle(stub.owner ? stub.owner->handle : 0));
}

void addTableHead(const DrawingState& state, const AcDbStub& stub, const Container& table, TagList& tags) {
    tags.add(2, table.name);
    addHandle(state, stub, tags);
    addOwner(state, stub, tags);
    addMarker(state, tags, "AcDbSymbolTable");
    const auto isLive = [](const AcDbStub* member) { return !member->erased; };
    tags.add(70, std::to_string(std::count_if(table.members.begin(), table.members.end(), isLive)));
}

void addBlockHead(const DrawingState& state, const AcDbStub& stub, const Container& block, TagList& tags) {
    addHandle(state, stub, tags);
    addOwner(state, stub, tags);
    addMarker(state, tags, "AcDbEntity");
    tags.add(8, "0");
    addMarker(state, tags, "AcDbBlockBegin");
    tags.add(2, block.name);
    tags.add(70, "0");
    for (const int axis : {10, 20, 30})
        tags.add(axis, "0.0");
    tags.add(3, block.name);
    tags.add(1, "");
}

void addBlockTail(const DrawingState& state, const AcDbStub& stub, TagList& tags) {
    addHandle(state, stub, tags);
    addOwner(state, stub, tags);
    addMarker(state, tags, "AcDbEntity");
    tags.add(8, "0");
    addMarker(state, tags, "AcDbBlockEnd");
}

/// Returns the position of the first readable handle before the subclasses and outside of application groups;
/// without one, of the first unreadable handle there.
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

int handleCode(const DrawingState& state, const AcDbStub& stub) {
    return state.types.name(stub.type) == "DIMSTYLE" ? 105 : 5;
}

TagList bufferTags(const DrawingState& state, Span span) {
    const TagView view(std::string_view(state.bytes).substr(span.begin, span.end - span.begin), state.form);
    TagList tags;
    tags.reserve(static_cast<std::size_t>(std::ranges::distance(view)));
    for (const TagRef& tag : view)
        tags.add(tag.tag());
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

TagList firstRecords(const DrawingState& state, const AcDbStub& stub, const Container* container) {
    TagList tags;
    tags.add(0, state.types.name(stub.type));
    if (container && container->tail == &stub) {
        addBlockTail(state, stub, tags);
    } else if (container && container->kind == Container::Kind::block) {
        addBlockHead(state, stub, *container, tags);
    } else if (container) {
        addTableHead(state, stub, *container, tags);
    } else {
        addHandle(state, stub, tags);
        addOwner(state, stub, tags);
    }
    return tags;
}

const Container* framedBy(const DrawingState& state, const AcDbStub& stub) {
    const auto framed = state.newFrames.find(&stub);
    return framed == state.newFrames.end() ? nullptr : framed->second;
}

} // namespace zuhost
