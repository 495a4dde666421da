#include "new_records.h"

#include "dxf_records/number_text.h"

#include <algorithm>

namespace zuhost {
namespace {

constexpr int firstVersionWithSubclasses = 1012;

bool hasSubclasses(const DrawingState& state) {
    return state.version >= firstVersionWithSubclasses;
}

void addMarker(const DrawingState& state, TagList& tags, const char* marker) {
    if (hasSubclasses(state))
        tags.add(100, marker);
}

void addHandle(const DrawingState& state, const AcDbStub& stub, TagList& tags) {
    if (!stub.handleIsOurs)
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

} // namespace

int handleCode(const DrawingState& state, const AcDbStub& stub) {
    return state.types.name(stub.type) == "DIMSTYLE" ? 105 : 5;
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
    const auto at = std::find_if(state.containers.rbegin(), state.containers.rend(),
                                 [&](const Container& c) { return c.head == &stub || c.tail == &stub; });
    return at == state.containers.rend() ? nullptr : &*at;
}

} // namespace zuhost
