#include "drawing/document.h"

#include "drawing_parser.h"
#include "drawing_writer.h"
#include "dxf_records/record_reader.h"
#include "empty_drawing.h"
#include "object_tags.h"
#include "zuhost/atomic_file.h"
#include "zuhost/paths.h"
#include "zuhost/system_error.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <utility>

namespace zuhost {
namespace {

/// Returns where a section of the kind begins, or where it would have to.
std::uint64_t placeForSection(const DrawingState& state, Container::Kind kind) {
    using Kind = Container::Kind;
    for (const Kind later : {Kind::table, Kind::block, Kind::entities, Kind::objects}) {
        const SectionFrame* frame = later > kind ? state.section(sectionName(later)) : nullptr;
        if (frame)
            return frame->span.begin;
    }
    return state.eof;
}

/// Returns where new containers of the kind are written: at the end of their section, or where that is
/// created.
std::uint64_t placeForContainer(const DrawingState& state, Container::Kind kind) {
    const SectionFrame* frame = state.section(sectionName(kind));
    return frame ? frame->span.end : placeForSection(state, kind);
}

Container& insertContainer(DrawingState& state, Container container) {
    container.created = true;
    container.end = placeForContainer(state, container.kind);
    // Searches from the end: most new containers are blocks, which belong there.
    const auto after =
        std::find_if(state.containers.rbegin(), state.containers.rend(), [&](const Container& c) {
            return c.end < container.end || (c.end == container.end && c.kind <= container.kind);
        });
    Container& inserted = *state.containers.insert(after.base(), std::move(container));
    for (const AcDbStub* const frame : {inserted.head, inserted.tail})
        if (frame != nullptr)
            state.newFrames.emplace(frame, &inserted);
    return inserted;
}

AcDbStub* newStub(DrawingState& state, std::string_view typeName, AcDbStub* owner) {
    AcDbStub& stub = state.stubs.emplace_back();
    stub.handle = state.handles.takeNext();
    stub.database = state.database;
    stub.owner = owner;
    stub.type = state.types.number(typeName).value_or(0);
    stub.hasInternalHandle = !state.writesHandles;
    state.handles.add(stub);
    return &stub;
}

/// Returns the file's own style for its own form, else the default style of the other form.
RecordStyle styleFor(const DrawingState& state, DrawingForm form) {
    if (form == state.style.form)
        return state.style;
    RecordStyle style;
    style.form = form;
    style.byteCodes = form == DrawingForm::binary && state.shortCodesInBinary;
    return style;
}

DocumentError fileError(const std::wstring& file, std::wstring problem) {
    DocumentError error;
    error.file = file;
    error.problem = std::move(problem);
    return error;
}

DocumentError systemError(const std::wstring& file, int number) {
    DocumentError error = fileError(file, fromUtf8(errorText(number)));
    error.systemError = number;
    return error;
}

/// Writes the drawing. Returns the fault, empty on success.
std::wstring write(const DrawingState& state, DrawingForm form, const Document::TagSource& tags,
                   ByteSink sink) {
    RecordOutput output(state, styleFor(state, form), std::move(sink));
    const bool sameForm = form == state.style.form;
    if (!sameForm && form == DrawingForm::binary)
        output.raw(dxf::kBinarySentinel);
    DrawingWriter(state, tags, output).run(sameForm ? Span{0, state.bytes.size()} : state.content);
    output.flush();
    return output.fault();
}

} // namespace

std::wstring DocumentError::message(std::wstring_view label) const {
    std::wstring text = file;
    if (line != 0)
        text += L":" + std::to_wstring(line);
    else if (offset != 0)
        text += L": byte " + std::to_wstring(offset);
    return (text += L": ").append(label) + problem;
}

Document::Document(std::shared_ptr<DrawingState> state) : state_(std::move(state)) {}

Document::~Document() = default;

Document::OpenResult Document::open(std::string bytes, const std::wstring& file, AcDbDatabase* database) {
    auto state = std::make_shared<DrawingState>();
    state->bytes = std::move(bytes);
    state->file = file;
    state->database = database;
    try {
        if (auto error = parseDrawing(*state))
            return std::move(*error);
        return std::unique_ptr<Document>(new Document(std::move(state)));
    } catch (const std::bad_alloc&) {
        return DocumentError{file, 0, 0, L"not enough memory to open the drawing"};
    }
}

Document::OpenResult Document::openFile(const std::wstring& file, AcDbDatabase* database) {
    const std::string path = systemPath(file);
    FileIdentity identity;
    auto contents = readWholeFile(path, &identity);
    if (const int* number = std::get_if<int>(&contents))
        return *number == EFBIG
                   ? fileError(file,
                               L"endless or too large for a device or pipe; save the data to a file first")
                   : systemError(file, *number);
    OpenResult result = open(std::move(std::get<std::string>(contents)), file, database);
    if (auto* document = std::get_if<std::unique_ptr<Document>>(&result))
        (*document)->state_->source = SourceFile::at(path, identity);
    return result;
}

void Document::allowReplacingChangedFile() {
    if (state_->source)
        state_->source->mayReplaceChanged = true;
}

std::unique_ptr<Document> Document::createEmpty(AcDbDatabase* database) {
    auto result = open(emptyDrawing(), {}, database);
    return std::move(std::get<std::unique_ptr<Document>>(result));
}

DrawingForm Document::form() const {
    return state_->style.form;
}

int Document::version() const {
    return state_->version;
}

std::wstring Document::decode(std::string_view value) const {
    return state_->encoding.decode(value);
}

void Document::decode(std::string_view value, std::wstring& text) const {
    state_->encoding.decode(value, text);
}

std::string Document::encode(std::wstring_view text) const {
    return state_->encoding.encode(text);
}

const std::vector<DocumentError>& Document::warnings() const {
    return state_->warnings;
}

const std::string& Document::typeName(const AcDbStub& stub) const {
    return state_->types.name(stub.type);
}

AcDbStub* Document::find(std::uint64_t handle) const {
    return state_->handles.find(handle);
}

TagList Document::tags(const AcDbStub& stub) const {
    return stub.length != 0 ? objectTags(*state_, stub)
                            : firstRecords(*state_, stub, framedBy(*state_, stub));
}

TagView Document::view(const AcDbStub& stub) const {
    return objectView(*state_, stub);
}

int Document::handleCode(const AcDbStub& stub) const {
    return zuhost::handleCode(*state_, stub);
}

std::list<Container>& Document::containers() {
    return state_->containers;
}

const std::list<Container>& Document::containers() const {
    return state_->containers;
}

std::size_t Document::objectCount() const {
    return state_->stubs.size();
}

Container* Document::findContainer(Container::Kind kind, std::string_view name) const {
    auto& found = state_->foundContainers[static_cast<std::size_t>(kind)];
    if (const auto known = found.find(name); known != found.end())
        return known->second;
    for (Container& container : state_->containers)
        if (container.kind == kind && container.name == name)
            return found.emplace(name, &container).first->second;
    return nullptr;
}

Container& Document::container(Container::Kind kind, std::string_view name) {
    if (Container* const known = findContainer(kind, name))
        return *known;
    if (kind == Container::Kind::block)
        return appendBlock(std::string(name), nullptr);
    Container created;
    created.kind = kind;
    created.name = name;
    if (kind == Container::Kind::table)
        created.head = newStub(*state_, "TABLE", nullptr);
    return insertContainer(*state_, std::move(created));
}

AcDbStub* Document::append(Container& container, std::string_view typeName, AcDbStub* owner) {
    AcDbStub* stub = newStub(*state_, typeName, owner);
    container.members.push_back(stub);
    return stub;
}

Container& Document::appendBlock(std::string name, AcDbStub* owner) {
    Container block;
    block.kind = Container::Kind::block;
    block.name = std::move(name);
    block.head = newStub(*state_, "BLOCK", owner);
    block.tail = newStub(*state_, "ENDBLK", owner);
    return insertContainer(*state_, std::move(block));
}

Container& Document::implyModelSpace() {
    Container& space = appendBlock("*Model_Space", nullptr);
    space.implied = true;
    space.head->hasInternalHandle = true;
    space.tail->hasInternalHandle = true;
    for (AcDbStub* entity : state_->spaceless)
        entity->owner = space.head;
    state_->spaceless.clear();
    return space;
}

const TagList& Document::header() const {
    return state_->header;
}

void Document::setHeader(TagList header) {
    state_->header = std::move(header);
    state_->headerChanged = true;
}

std::optional<DocumentError> Document::save(const std::wstring& file, DrawingForm form,
                                            const TagSource& tags) {
    const std::string path = systemPath(file);
    AtomicFile target(path);
    std::wstring fault = write(*state_, form, tags, [&](std::string_view bytes) { target.write(bytes); });
    if (!fault.empty())
        return fileError(file, std::move(fault));
    std::optional<SourceFile>& source = state_->source;
    const bool isNamed = source && source->isNamedBy(path, target.target());
    const bool isSource = isNamed || (source && source->isLinkedAt(target.target()));
    const bool compares = isSource && !source->mayReplaceChanged;
    if (const int number = target.commit(compares ? &source->identity : nullptr))
        return systemError(file, number);
    if (isNamed)
        source = SourceFile::at(path, target.identity());
    return std::nullopt;
}

std::string Document::bytes(DrawingForm form, const TagSource& tags, DocumentError* error) const {
    std::string result;
    std::wstring fault = write(*state_, form, tags, [&](std::string_view bytes) { result += bytes; });
    if (fault.empty())
        return result;
    if (error)
        *error = fileError(state_->file, std::move(fault));
    return {};
}

std::shared_ptr<const std::string> Document::sharedBytes(const TagSource& tags) const {
    const std::string& own = state_->bytes;
    std::string_view whole;
    std::string copy;
    const std::wstring fault = write(*state_, form(), tags, [&](std::string_view bytes) {
        if (whole.empty() && copy.empty() && bytes.data() == own.data() && bytes.size() == own.size()) {
            whole = bytes;
            return;
        }
        copy.append(std::exchange(whole, {})).append(bytes);
    });
    if (!fault.empty())
        return nullptr;
    if (!whole.empty())
        return {state_, &own};
    return std::make_shared<const std::string>(std::move(copy));
}

} // namespace zuhost
