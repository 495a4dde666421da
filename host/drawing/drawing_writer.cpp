#include "drawing_writer.h"

#include "dxf_records/number_text.h"
#include "object_tags.h"

#include <algorithm>

namespace zuhost {
namespace {

bool isNew(const AcDbStub& stub) {
    return stub.length == 0;
}

Span spanOf(const AcDbStub& stub) {
    return {stub.offset, stub.offset + stub.length};
}

/// Only blocks can be erased. A damaged file can name an erased object as the owner of a table.
bool isErased(const Container& container) {
    const AcDbStub* head = container.kind == Container::Kind::block ? container.head : nullptr;
    return head && (head->erased || (head->owner && head->owner->erased));
}

std::size_t liveMembers(const Container& container) {
    const auto isLive = [](const AcDbStub* member) { return !member->erased; };
    return static_cast<std::size_t>(
        std::count_if(container.members.begin(), container.members.end(), isLive));
}

bool hasNewMembers(const Container& container) {
    return std::any_of(container.members.begin(), container.members.end(),
                       [](const AcDbStub* member) { return isNew(*member) && !member->erased; });
}

bool holdsEntities(const Container& container) {
    return container.kind == Container::Kind::block || container.kind == Container::Kind::entities;
}

/// Returns whether new objects are written. Tables are written only with a member.
bool addsObjects(const DrawingState& state) {
    const auto firstNew = state.stubs.begin() + static_cast<std::ptrdiff_t>(state.stubsOfFile);
    return std::any_of(firstNew, state.stubs.end(), [&](const AcDbStub& stub) {
        const bool goesWithOwner = stub.owner && stub.owner->erased;
        return !stub.erased && !goesWithOwner && !stub.hasInternalHandle &&
               state.types.name(stub.type) != "TABLE";
    });
}

/// Returns the header with $HANDSEED raised above every handle.
TagList withSeed(const DrawingState& state) {
    TagList header = state.header;
    for (std::size_t i = 0; i + 1 < header.size(); ++i) {
        if (header[i].code != 9 || header[i].value != "$HANDSEED" || header[i + 1].code != 5)
            continue;
        const std::uint64_t seed = parseHandle(header[i + 1].value).value_or(0);
        if (seed < state.handles.next())
            header[i + 1].value = formatHandle(state.handles.next());
        return header;
    }
    if (!header.empty()) {
        header.add(9, "$HANDSEED");
        header.add(5, formatHandle(state.handles.next()));
    }
    return header;
}

} // namespace

DrawingWriter::DrawingWriter(const DrawingState& state, const Document::TagSource& source,
                             RecordOutput& output)
    : state_(state), source_(source), output_(output) {}

void DrawingWriter::run(Span content) {
    done_ = content.begin;
    const bool addsHandles = addsObjects(state_);
    replacesHandles_ = state_.replacesHandles && (output_.converts() || addsHandles || isEdited());
    raisesSeed_ = state_.writesHandles && (addsHandles || replacesHandles_);
    headerPending_ = state_.headerChanged || raisesSeed_;
    for (const Container& container : state_.containers)
        writeContainer(container);
    closeSection();
    copyUpTo(content.end);
}

void DrawingWriter::writeContainer(const Container& container) {
    if (container.created) {
        writeCreated(container);
        return;
    }
    closeSection();
    if (isErased(container)) {
        replace({container.head->offset, container.tail ? spanOf(*container.tail).end : container.end});
        return;
    }
    writeHead(container);
    writeMembers(container);
    if (container.tail)
        writeObject(*container.tail);
}

void DrawingWriter::writeCreated(const Container& container) {
    const bool isBlock = container.kind == Container::Kind::block;
    if (container.implied || isErased(container) || (!isBlock && liveMembers(container) == 0))
        return;
    if (openKind_ != container.kind)
        closeSection();
    copyUpTo(container.end);
    openSection(container);
    if (container.head)
        writeNew(*container.head, &container);
    writeMembers(container);
    if (container.tail)
        writeNew(*container.tail, &container);
    if (container.kind == Container::Kind::table)
        output_.record(0, "ENDTAB");
}

void DrawingWriter::writeHead(const Container& container) {
    if (!container.head)
        return;
    if (container.kind != Container::Kind::table || !hasNewMembers(container)) {
        writeObject(*container.head);
        return;
    }
    // The number of entries is a hint, but readers can allocate by it.
    TagList head = tagsOf(*container.head) ? *tagsOf(*container.head) : objectTags(state_, *container.head);
    const auto live = static_cast<std::int64_t>(liveMembers(container));
    if (TagView(head).integer(70).value_or(live) < live)
        head.setInteger(70, live, head.all());
    replace(spanOf(*container.head));
    output_.records(head);
}

void DrawingWriter::writeMembers(const Container& container) {
    const AcDbStub* omitted = nullptr;
    std::vector<const AcDbStub*> added;
    const auto writeAdded = [&] {
        for (const AcDbStub* stub : added)
            writeNew(*stub, nullptr);
        added.clear();
    };
    for (const AcDbStub* member : container.members) {
        // Vertices and attributes are erased with their entity.
        const bool goesWithOwner = omitted && member->owner == omitted && holdsEntities(container);
        if (member->erased && !goesWithOwner)
            omitted = member;
        if (member->erased || goesWithOwner) {
            if (!isNew(*member))
                replace(spanOf(*member));
        } else if (isNew(*member)) {
            added.push_back(member);
        } else {
            if (!added.empty())
                copyUpTo(member->offset);
            writeAdded();
            writeObject(*member);
        }
    }
    if (!added.empty() && !container.created)
        copyUpTo(container.end);
    writeAdded();
}

void DrawingWriter::writeObject(const AcDbStub& stub) {
    const TagList* const tags = tagsOf(stub);
    if (tags || (replacesHandles_ && stub.replacesHandle))
        rewrite(stub, tags);
    // Others are copied with the next span.
}

void DrawingWriter::rewrite(const AcDbStub& stub, const TagList* tags) {
    replace(spanOf(stub));
    output_.records(tags ? *tags : objectTags(state_, stub));
}

void DrawingWriter::writeNew(const AcDbStub& stub, const Container* container) {
    if (const TagList* tags = tagsOf(stub))
        output_.records(*tags);
    else
        output_.records(firstRecords(state_, stub, container));
}

void DrawingWriter::openSection(const Container& container) {
    if (sectionOpen_ || state_.section(sectionName(container.kind)))
        return;
    output_.record(0, "SECTION");
    output_.record(2, sectionName(container.kind));
    sectionOpen_ = true;
    openKind_ = container.kind;
}

void DrawingWriter::closeSection() {
    if (sectionOpen_)
        output_.record(0, "ENDSEC");
    sectionOpen_ = false;
}

void DrawingWriter::writeHeader() {
    headerPending_ = false;
    const TagList header = raisesSeed_ ? withSeed(state_) : state_.header;
    if (header == state_.header && !state_.headerChanged)
        return;
    const bool hasSection = state_.section("HEADER") != nullptr;
    replace(state_.headerSpan);
    if (!hasSection) {
        output_.record(0, "SECTION");
        output_.record(2, "HEADER");
    }
    output_.records(header);
    if (!hasSection)
        output_.record(0, "ENDSEC");
}

void DrawingWriter::copyUpTo(std::uint64_t offset) {
    if (headerPending_ && state_.headerSpan.begin <= offset)
        writeHeader();
    if (offset <= done_)
        return;
    output_.copy({done_, offset});
    done_ = offset;
}

void DrawingWriter::replace(Span span) {
    copyUpTo(span.begin);
    done_ = std::max(done_, span.end);
}

bool DrawingWriter::isEdited() const {
    return state_.headerChanged ||
           std::any_of(state_.stubs.begin(), state_.stubs.end(), [this](const AcDbStub& stub) {
               return !isNew(stub) && (stub.erased || tagsOf(stub));
           });
}

const TagList* DrawingWriter::tagsOf(const AcDbStub& stub) const {
    return source_ ? source_(stub) : nullptr;
}

} // namespace zuhost
