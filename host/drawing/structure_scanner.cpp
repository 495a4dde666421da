#include "structure_scanner.h"

#include "dxf_records/number_text.h"
#include "dxf_records/value_type.h"
#include "tag_extraction.h"

#include <algorithm>
#include <limits>

namespace zuhost {
namespace {

constexpr int typeCode = 0;
constexpr int nameCode = 2;
constexpr int paperCode = 67;
constexpr int subclassCode = 100;
constexpr int groupCode = 102;
constexpr int ownerCode = 330;
constexpr int commentCode = 999;

constexpr std::string_view knownSections[] = {"HEADER", "CLASSES", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"};

bool isKnownSection(std::string_view name) {
    for (const std::string_view known : knownSections)
        if (known == name)
            return true;
    return false;
}

bool isFrame(std::string_view type) {
    for (const std::string_view frame : {"SECTION", "ENDSEC", "EOF", "TABLE", "ENDTAB", "BLOCK", "ENDBLK"})
        if (type == frame)
            return true;
    return false;
}

} // namespace

StructureScanner::StructureScanner(DrawingState& state, RecordSource& source)
    : state_(state), source_(source) {}

bool StructureScanner::run() {
    return nextBesidesComments() && scanSections();
}

bool StructureScanner::scanSections() {
    while (true) {
        if (record_.code != typeCode)
            return fail(L"a record outside of any section");
        if (at("EOF")) {
            state_.eof = record_.offset;
            state_.content.end = record_.end;
            return true;
        }
        if (!at("SECTION"))
            return fail(L"SECTION or EOF expected, not " + quoted(record_.value));
        if (!scanSection() || !nextBesidesComments())
            return false;
    }
}

/// From the SECTION record to the ENDSEC record.
bool StructureScanner::scanSection() {
    const std::uint64_t begin = record_.offset;
    context_ = L"a section";
    if (!nextBesidesComments())
        return false;
    if (record_.code != nameCode)
        return fail(L"a section without a name");
    const std::string name(record_.value);
    if (isKnownSection(name) && state_.section(name))
        return fail(L"a second section " + quoted(name));
    context_ = L"the section " + quoted(name);
    if (!nextBesidesComments() || !scanSectionNamed(name))
        return false;
    if (!at("ENDSEC"))
        return fail(quoted(record_.value) + L" within " + context_ + L", ENDSEC expected");
    state_.sections.push_back({name, {begin, record_.offset}});
    context_.clear();
    return true;
}

bool StructureScanner::scanSectionNamed(std::string_view name) {
    if (name == "HEADER") {
        return scanHeader();
    }
    if (name == "TABLES")
        return scanTables();
    if (name == "BLOCKS")
        return scanBlocks();
    if (name == "ENTITIES")
        return scanObjects(Container::Kind::entities);
    if (name == "OBJECTS")
        return scanObjects(Container::Kind::objects);
    return scanRest();
}

/// The records are kept as tags besides: there are few, and what asks for them asks for many.
bool StructureScanner::scanHeader() {
    const std::uint64_t begin = record_.offset;
    if (record_.code != typeCode && record_.code != 9)
        return fail(L"a header value without the name of a variable");
    while (record_.code != typeCode)
        if (!next())
            return false;
    state_.headerSpan = {begin, record_.offset};
    return true;
}

bool StructureScanner::scanTables() {
    while (record_.code == typeCode && at("TABLE"))
        if (!scanTable())
            return false;
    return record_.code == typeCode || fail(L"a record outside of any table");
}

/// From the TABLE record behind the ENDTAB record.
bool StructureScanner::scanTable() {
    const std::uint64_t begin = record_.offset;
    Container table;
    table.kind = Container::Kind::table;
    table.head = scanObject(&table.name);
    if (!table.head)
        return false;
    if (table.name.empty())
        return failAt(begin, L"a table without a name");
    context_ = L"the table " + quoted(table.name);
    while (!at("ENDTAB"))
        if (!scanMember(table))
            return false;
    table.end = record_.offset;
    context_ = L"the section \"TABLES\"";
    state_.containers.push_back(std::move(table));
    return nextBesidesComments();
}

bool StructureScanner::scanBlocks() {
    while (record_.code == typeCode && at("BLOCK"))
        if (!scanBlock())
            return false;
    return record_.code == typeCode || fail(L"a record outside of any block");
}

/// From the BLOCK record behind the records of its ENDBLK.
bool StructureScanner::scanBlock() {
    const std::uint64_t begin = record_.offset;
    Container block;
    block.kind = Container::Kind::block;
    block.head = scanObject(&block.name);
    if (!block.head)
        return false;
    if (block.name.empty())
        return failAt(begin, L"a block without a name");
    context_ = L"the block " + quoted(block.name);
    parent_ = nullptr;
    while (!at("ENDBLK"))
        if (!scanMember(block))
            return false;
    block.end = record_.offset;
    block.tail = scanObject();
    context_ = L"the section \"BLOCKS\"";
    state_.containers.push_back(std::move(block));
    return state_.containers.back().tail != nullptr;
}

bool StructureScanner::scanObjects(Container::Kind kind) {
    Container container;
    container.kind = kind;
    if (record_.code != typeCode)
        return fail(L"a record outside of any object");
    parent_ = nullptr;
    while (!at("ENDSEC"))
        if (!scanMember(container))
            return false;
    container.end = record_.offset;
    state_.containers.push_back(std::move(container));
    return true;
}

/// Sections that hold no objects, or whose meaning is not known.
bool StructureScanner::scanRest() {
    while (record_.code != typeCode || !at("ENDSEC")) {
        if (record_.code == typeCode && (at("SECTION") || at("EOF")))
            return fail(quoted(record_.value) + L" within " + context_ + L", ENDSEC expected");
        if (!next())
            return false;
    }
    return true;
}

bool StructureScanner::scanMember(Container& container) {
    if (isFrame(record_.value))
        return fail(quoted(record_.value) + L" within " + context_ + L", which is not closed");
    AcDbStub* stub = scanObject();
    if (!stub)
        return false;
    if (container.kind == Container::Kind::block || container.kind == Container::Kind::entities)
        joinToParent(*stub);
    container.members.push_back(stub);
    return true;
}

/// Vertices and attributes belong to the entity before them, whatever owner the file names.
void StructureScanner::joinToParent(AcDbStub& stub) {
    const std::string& type = state_.types.name(stub.type);
    if (type == "POLYLINE" || type == "INSERT") {
        parent_ = &stub;
        return;
    }
    if (type != "VERTEX" && type != "ATTRIB" && type != "SEQEND") {
        parent_ = nullptr;
        return;
    }
    stub.owner = parent_;
    if (type == "SEQEND")
        parent_ = nullptr;
}

/// From a type record to the next one. Null after a fault.
AcDbStub* StructureScanner::scanObject(std::string* name) {
    const std::uint64_t begin = record_.offset;
    const auto type = state_.types.number(record_.value);
    if (record_.value.empty() || !type) {
        fail(type ? L"an object without a type" : L"too many types of objects");
        return nullptr;
    }
    const std::string& typeName = state_.types.name(*type);
    Facts facts;
    if (!scanFacts(typeName == "DIMSTYLE" ? 105 : 5, facts))
        return nullptr;
    const std::uint64_t length = record_.offset - begin;
    if (length > std::numeric_limits<std::uint32_t>::max()) {
        failAt(begin, L"an object of more than 4 GB");
        return nullptr;
    }
    AcDbStub& stub = state_.stubs.emplace_back();
    stub.handle = facts.handle;
    stub.database = state_.database;
    stub.offset = begin;
    stub.length = static_cast<std::uint32_t>(length);
    stub.type = *type;
    hints_.push_back(facts.owner);
    if (name)
        *name = facts.name;
    return &stub;
}

/// The records behind the type record, up to the next type record.
bool StructureScanner::scanFacts(int handleCode, Facts& facts) {
    inHead_ = true;
    inGroup_ = false;
    while (next()) {
        if (record_.code == typeCode)
            return true;
        if (!noteFact(handleCode, facts))
            return false;
    }
    return false;
}

/// Handle and owner stand before the first subclass marker, and outside of application groups. The handle
/// comes first; a later record of the same code means something else.
bool StructureScanner::noteFact(int handleCode, Facts& facts) {
    noteReference();
    switch (record_.code) {
    case 5:
    case 105:
        if (!inHead_ || inGroup_ || record_.code != handleCode || facts.handle != 0)
            return true;
        if (const auto handle = parseHandle(record_.value)) {
            facts.handle = *handle;
            return true;
        }
        return fail(L"not a handle: " + quoted(record_.value));
    case nameCode:
        if (facts.name.empty())
            facts.name = record_.value;
        return true;
    case paperCode:
        facts.owner.inPaperSpace = source_.value(record_, scratch_).find('1') != std::string_view::npos;
        return true;
    case subclassCode:
        inHead_ = false;
        return true;
    case groupCode:
        inGroup_ = record_.value.starts_with('{');
        return true;
    case ownerCode:
        if (inHead_ && !inGroup_ && facts.owner.handle == 0)
            facts.owner.handle = parseHandle(record_.value).value_or(0);
        return true;
    default:
        return true;
    }
}

void StructureScanner::noteReference() {
    // Such handles are no drawing's own, and would leave no room above them.
    constexpr std::uint64_t kImplausible = std::uint64_t{1} << 60U;
    if (record_.code < 320 || dxf::valueType(record_.code) != dxf::ValueType::handle)
        return;
    if (const auto handle = parseHandle(record_.value); handle && *handle < kImplausible)
        greatestReference_ = std::max(greatestReference_, *handle);
}

bool StructureScanner::next() {
    switch (source_.next(record_)) {
    case dxf::ReadResult::record:
        return true;
    case dxf::ReadResult::end:
        return failAt(state_.bytes.size(), context_.empty() ? L"the file ends without an EOF record"
                                                            : L"the file ends within " + context_);
    case dxf::ReadResult::error:
        break;
    }
    return failAt(source_.faultOffset(), source_.fault());
}

bool StructureScanner::nextBesidesComments() {
    do {
        if (!next())
            return false;
    } while (record_.code == commentCode);
    return true;
}

/// At the text that is the matter, which in ASCII drawings stands on another line than its group code.
bool StructureScanner::fail(std::wstring problem) {
    const bool ascii = state_.style.form == DrawingForm::ascii;
    const auto textOffset = static_cast<std::uint64_t>(record_.value.data() - state_.bytes.data());
    return failAt(ascii ? textOffset : record_.offset, std::move(problem));
}

bool StructureScanner::failAt(std::uint64_t offset, std::wstring problem) {
    faultOffset_ = offset;
    fault_ = std::move(problem);
    return false;
}

} // namespace zuhost
