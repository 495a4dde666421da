#include "drawing_parser.h"

#include "value_check.h"

#include <algorithm>
#include <limits>

namespace zuhost {
namespace {

constexpr int kTypeCode = 0;
constexpr int kNameCode = 2;
constexpr int kVariableCode = 9;
constexpr int kCommentCode = 999;

constexpr std::string_view kKnownSections[] = {"HEADER", "CLASSES",  "TABLES",
                                               "BLOCKS", "ENTITIES", "OBJECTS"};

bool isKnownSection(std::string_view name) {
    return std::find(std::begin(kKnownSections), std::end(kKnownSections), name) != std::end(kKnownSections);
}

constexpr std::string_view kFrames[] = {"SECTION", "ENDSEC", "EOF", "TABLE", "ENDTAB", "BLOCK", "ENDBLK"};

/// Frames are recognised in lower case too.
bool sameFrame(std::string_view type, std::string_view frame) {
    const auto sameLetter = [](char a, char b) { return a == b || (a >= 'a' && a - 'a' + 'A' == b); };
    return type.size() == frame.size() && std::equal(type.begin(), type.end(), frame.begin(), sameLetter);
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::uint8_t byteOrZero(std::uint64_t value) {
    return value <= std::numeric_limits<std::uint8_t>::max() ? static_cast<std::uint8_t>(value) : 0;
}

} // namespace

StructureParser::StructureParser(DrawingState& state, RecordSource& source, WarningLog& log)
    : state_(state), source_(source), log_(log) {}

bool StructureParser::run() {
    return nextBesidesComments() && parseSections();
}

bool StructureParser::parseSections() {
    while (!at("EOF")) {
        const bool good = at("SECTION") || atSectionName() ? parseSection() : skipToSection();
        if (!good)
            return false;
    }
    state_.eof = record_.offset;
    state_.content.end = record_.end;
    return true;
}

/// Parses from the SECTION record (or the name, where that is missing) past the ENDSEC record. A missing
/// ENDSEC ends the section at the next SECTION or EOF record.
bool StructureParser::parseSection() {
    const std::uint64_t begin = record_.offset;
    context_ = L"a section";
    if (at("SECTION")) {
        if (!nextBesidesComments())
            return false;
    } else {
        warn(headlessSection, begin, L"the section " + quoted(record_.value) + L" has no SECTION record");
    }
    std::string name;
    if (record_.code == kNameCode) {
        name = record_.value;
        context_ = L"the section " + quoted(name);
        if (!nextBesidesComments())
            return false;
    } else {
        warn(unnamedSection, begin, L"a section without a name; its records are not read");
    }
    const bool isRepeated = isKnownSection(name) && state_.section(name);
    if (isRepeated)
        warn(repeatedSection, begin, L"a second section " + quoted(name));
    const bool isRead = isKnownSection(name) && !(isRepeated && name == "HEADER");
    if (isRead && !parseSectionNamed(name))
        return false;
    while (!atSectionEnd()) // Sections without objects, and unknown ones.
        if (!next())
            return false;
    state_.sections.push_back({name, {begin, record_.offset}});
    const bool isClosed = at("ENDSEC");
    if (!isClosed)
        warn(openSection, begin, context_ + L" is not closed");
    context_.clear();
    return !isClosed || nextBesidesComments();
}

bool StructureParser::parseSectionNamed(std::string_view name) {
    if (name == "HEADER")
        return parseHeader();
    if (name == "TABLES")
        return parseTables();
    if (name == "BLOCKS")
        return parseBlocks();
    if (name == "ENTITIES")
        return parseObjects(Container::Kind::entities);
    return name != "OBJECTS" || parseObjects(Container::Kind::objects);
}

bool StructureParser::parseHeader() {
    const std::uint64_t begin = record_.offset;
    if (record_.code != kTypeCode && record_.code != kVariableCode)
        warn(recordOutside, begin, L"a header value without the name of a variable");
    while (record_.code != kTypeCode)
        if (!next())
            return false;
    state_.headerSpan = {begin, record_.offset};
    return atSectionEnd() || skipRun(L"the header variables");
}

bool StructureParser::parseTables() {
    while (!atSectionEnd())
        if (!(at("TABLE") ? parseTable() : skipRun(L"tables")))
            return false;
    return true;
}

/// Parses from the TABLE record past the ENDTAB record. A missing ENDTAB ends the table at the next frame.
bool StructureParser::parseTable() {
    const std::uint64_t begin = record_.offset;
    Container table;
    table.kind = Container::Kind::table;
    table.head = parseObject(&table.name);
    if (!table.head)
        return false;
    if (table.name.empty())
        warn(unnamedTable, begin, L"a table without a name");
    context_ = L"the table " + quoted(table.name);
    while (!at("ENDTAB") && !at("TABLE") && !atSectionEnd())
        if (!parseMember(table))
            return false;
    table.end = record_.offset;
    const bool isClosed = at("ENDTAB");
    if (!isClosed)
        warn(openTable, begin, context_ + L" is not closed");
    context_ = L"the section \"TABLES\"";
    state_.containers.push_back(std::move(table));
    return !isClosed || nextBesidesComments();
}

bool StructureParser::parseBlocks() {
    while (!atSectionEnd())
        if (!(at("BLOCK") ? parseBlock() : skipRun(L"blocks")))
            return false;
    return true;
}

/// Parses from the BLOCK record past the records of ENDBLK. A missing ENDBLK ends the block at the next
/// frame.
bool StructureParser::parseBlock() {
    const std::uint64_t begin = record_.offset;
    Container block;
    block.kind = Container::Kind::block;
    block.head = parseObject(&block.name);
    if (!block.head)
        return false;
    if (block.name.empty())
        warn(unnamedBlock, begin, L"a block without a name");
    context_ = L"the block " + quoted(block.name);
    parent_ = nullptr;
    while (!at("ENDBLK") && !at("BLOCK") && !atSectionEnd())
        if (!parseMember(block))
            return false;
    block.end = record_.offset;
    if (!at("ENDBLK"))
        warn(openBlock, begin, context_ + L" is not closed");
    else if (block.tail = parseObject(); !block.tail)
        return false;
    context_ = L"the section \"BLOCKS\"";
    state_.containers.push_back(std::move(block));
    return true;
}

bool StructureParser::parseObjects(Container::Kind kind) {
    Container container;
    container.kind = kind;
    parent_ = nullptr;
    while (!atSectionEnd())
        if (!parseMember(container))
            return false;
    container.end = record_.offset;
    state_.containers.push_back(std::move(container));
    return true;
}

/// Skips records between sections. The name of a section there, at the start or after a type, is all that a
/// damaged SECTION record left; after other records it belongs to a stray object.
bool StructureParser::skipToSection() {
    warnOfStray(L"sections");
    bool isFirst = false;
    do {
        isFirst = record_.code == kTypeCode;
        if (!next())
            return false;
    } while (!atFrame() && !(isFirst && atSectionName()));
    return true;
}

/// Skips misplaced records and objects up to the next frame.
bool StructureParser::skipRun(const wchar_t* place) {
    warnOfStray(place);
    do {
        if (!next())
            return false;
    } while (!atFrame());
    return true;
}

/// Skips misplaced records up to the next object.
bool StructureParser::skipObject() {
    warnOfStray(L"objects");
    do {
        if (!next())
            return false;
    } while (record_.code != kTypeCode);
    return true;
}

void StructureParser::warnOfStray(const wchar_t* place) {
    log_.add(recordOutside, source_.valueOffset(record_), [&] {
        const std::wstring what = record_.code == kTypeCode ? quoted(record_.value) : L"a record";
        return what + L" outside of " + place + L" is not read";
    });
}

bool StructureParser::parseMember(Container& container) {
    if (record_.code != kTypeCode || atFrame())
        return skipObject();
    AcDbStub* stub = parseObject();
    if (!stub)
        return false;
    if (container.kind == Container::Kind::block || container.kind == Container::Kind::entities)
        joinToParent(*stub);
    container.members.push_back(stub);
    return true;
}

/// Vertices and attributes belong to the entity before them; the owner that the file names is ignored.
void StructureParser::joinToParent(AcDbStub& stub) {
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

/// Parses from a type record to the next one. Returns null after a fault.
AcDbStub* StructureParser::parseObject(std::string* name) {
    const std::uint64_t begin = record_.offset;
    const auto type = state_.types.number(type_);
    if (type_.empty())
        warn(untypedObject, begin, L"an object without a type");
    if (!type)
        warn(tooManyTypes, begin,
             L"more than 65535 types of objects; type " + quoted(type_) + L" is not read");
    ObjectFacts facts(type_ == "DIMSTYLE" ? 105 : 5);
    if (!parseFacts(facts))
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
    const std::uint64_t extended = std::min<std::uint64_t>(facts.extended, record_.offset);
    stub.extended = static_cast<std::uint32_t>(extended - begin);
    stub.marker = static_cast<std::uint32_t>(std::min(facts.marker, extended) - begin);
    if (facts.secondMarker < extended)
        stub.firstSubclass = byteOrZero(facts.secondMarker - facts.marker);
    stub.type = type.value_or(0);
    stub.replacesHandle = facts.unreadableHandle;
    hints_.push_back(facts.owner);
    if (name)
        *name = facts.name;
    return &stub;
}

/// Parses the records after the type record, up to the next type record.
bool StructureParser::parseFacts(ObjectFacts& facts) {
    while (next()) {
        if (record_.code == kTypeCode)
            return true;
        references_.add(record_);
        if (!facts.add(record_, source_, references_) && record_.code == 5)
            warnOfValue(); // `isReadable` accepts any value of code 5.
    }
    return false;
}

bool StructureParser::next() {
    switch (source_.next(record_)) {
    case dxf::ReadResult::record:
        if (record_.code == kTypeCode)
            type_ = trimmed(record_.value);
        else if (!source_.isReadable(record_))
            warnOfValue();
        return true;
    case dxf::ReadResult::end:
        return failAt(state_.bytes.size(), context_.empty() ? L"the file ends without an EOF record"
                                                            : L"the file ends within " + context_);
    case dxf::ReadResult::error:
        break;
    }
    return failAt(source_.faultOffset(), source_.fault());
}

bool StructureParser::nextBesidesComments() {
    do {
        if (!next())
            return false;
    } while (record_.code == kCommentCode);
    return true;
}

bool StructureParser::at(std::string_view type) const {
    return record_.code == kTypeCode && sameFrame(type_, type);
}

bool StructureParser::atFrame() const {
    return std::any_of(std::begin(kFrames), std::end(kFrames), [this](auto frame) { return at(frame); });
}

bool StructureParser::atSectionName() const {
    return record_.code == kNameCode && isKnownSection(record_.value);
}

bool StructureParser::atSectionEnd() const {
    return at("ENDSEC") || at("SECTION") || at("EOF");
}

void StructureParser::warn(Fault fault, std::uint64_t offset, const std::wstring& problem) {
    log_.add(fault, offset, [&] { return problem; });
}

void StructureParser::warnOfValue() {
    log_.add(record_.code, source_.valueOffset(record_), [this] {
        return L"group code " + std::to_wstring(record_.code) + L": " + quoted(record_.value) + L" is not " +
               valueName(record_.code);
    });
}

bool StructureParser::failAt(std::uint64_t offset, std::wstring problem) {
    faultOffset_ = offset;
    fault_ = std::move(problem);
    return false;
}

} // namespace zuhost
