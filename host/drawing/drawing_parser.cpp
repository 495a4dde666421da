#include "drawing_parser.h"

#include "dxf_records/number_text.h"
#include "object_tags.h"

#include <algorithm>

namespace zuhost {
namespace {

constexpr int kFirstVersionWithHandles = 1012;
constexpr std::string_view kLastVersionWithShortCodes = "AC1009";

std::string_view lineEndOf(std::string_view records) {
    const std::size_t newline = records.find('\n');
    const std::size_t carriageReturn = records.find('\r');
    if (newline == std::string_view::npos)
        return carriageReturn == std::string_view::npos ? "\n" : "\r";
    return carriageReturn + 1 == newline ? "\r\n" : "\n";
}

/// Detects how an ASCII file ends its lines and pads its group codes, at the first code of less than three
/// digits.
void readAsciiStyle(DrawingState& state, std::string_view records) {
    state.style.lineEnd = std::string(lineEndOf(records));
    dxf::AsciiReader reader(records);
    dxf::Record record;
    while (reader.next(record) == dxf::ReadResult::record) {
        if (record.code >= 100)
            continue;
        const std::size_t digits = records.find_first_not_of(' ', record.offset);
        const std::size_t end = records.find_first_of(" \r\n", digits);
        state.style.codeWidth = digits == record.offset ? 1 : end - record.offset;
        return;
    }
}

/// Detects the form of the file and where its records begin.
void readStyle(DrawingState& state) {
    const std::string_view bytes = state.bytes;
    if (dxf::isBinaryDrawing(bytes)) {
        state.style.form = DrawingForm::binary;
        state.content.begin = std::min(dxf::kBinarySentinel.size(), bytes.size());
        state.style.byteCodes = dxf::BinaryReader(bytes).codeForm() == dxf::CodeForm::bytes;
        state.form = state.style.byteCodes ? TagForm::shortBinary : TagForm::binary;
        return;
    }
    state.content.begin = bytes.starts_with(dxf::kByteOrderMark) ? dxf::kByteOrderMark.size() : 0;
    readAsciiStyle(state, bytes.substr(state.content.begin));
    state.form = state.style.lineEnd == "\r" ? TagForm::asciiReturns : TagForm::ascii;
}

DocumentError errorAt(const DrawingState& state, std::uint64_t offset, std::wstring problem) {
    DocumentError error;
    error.file = state.file;
    error.offset = offset;
    error.problem = std::move(problem);
    if (state.style.form == DrawingForm::ascii) {
        const auto stop = state.bytes.begin() +
                          static_cast<std::ptrdiff_t>(std::min<std::uint64_t>(offset, state.bytes.size()));
        error.line =
            1 + static_cast<std::uint64_t>(std::count(state.bytes.begin(), stop, state.style.lineEnd.back()));
    }
    return error;
}

/// Returns the value of a header variable with the code.
std::string_view variable(const TagList& header, std::string_view name, int code) {
    for (std::size_t i = 0; i + 1 < header.size(); ++i)
        if (header[i].code == 9 && header[i].value == name && header[i + 1].code == code)
            return header[i + 1].value;
    return {};
}

void readHeader(DrawingState& state, WarningLog& log) {
    if (!state.section("HEADER")) {
        const std::uint64_t start = state.sections.empty() ? state.eof : state.sections.front().span.begin;
        state.headerSpan = {start, start};
    }
    state.header = bufferTags(state, state.headerSpan);
    const std::string_view version = variable(state.header, "$ACADVER", 1);
    if (version.starts_with("AC"))
        state.version = static_cast<int>(
            std::clamp<std::int64_t>(parseInteger(version.substr(2)).value_or(state.version), 0, 9999));
    // Other readers decide by this text, and read a drawing without it as one of R12.
    state.shortCodesInBinary =
        version.substr(0, kLastVersionWithShortCodes.size()) <= kLastVersionWithShortCodes;
    const std::string_view codePage = variable(state.header, "$DWGCODEPAGE", 3);
    bool known = true;
    state.encoding = DrawingText::of(state.version, codePage, known);
    if (!known)
        log.add(unknownCodePage, state.headerSpan.begin,
                [&] { return L"unknown code page " + quoted(codePage) + L", read as code page 932"; });
}

/// Assigns the missing handles. The first of several objects with the same handle keeps it.
void readHandles(DrawingState& state, std::uint64_t greatestReference, WarningLog& log) {
    state.writesHandles = state.version >= kFirstVersionWithHandles ||
                          std::any_of(state.stubs.begin(), state.stubs.end(),
                                      [](const AcDbStub& stub) { return stub.handle != 0; });
    for (AcDbStub& stub : state.stubs)
        stub.replacesHandle = stub.replacesHandle && state.writesHandles;
    const std::vector<AcDbStub*> repeated = state.handles.build(state.stubs);
    for (AcDbStub* stub : repeated) {
        log.add(repeatedHandle, stub->offset, [&] {
            const std::string handle = formatHandle(stub->handle);
            return L"handle " + std::wstring(handle.begin(), handle.end()) +
                   L" occurs a second time; the object gets a new one when the drawing is changed";
        });
        stub->handle = 0;
        stub->replacesHandle = true;
    }
    if (const auto seed = parseHandle(variable(state.header, "$HANDSEED", 5)))
        state.handles.raiseNext(*seed);
    // A new object must not become the target of a dangling reference.
    state.handles.raiseNext(greatestReference + 1);
    state.handles.completeHandles(state.stubs);
    state.replacesHandles = std::any_of(state.stubs.begin(), state.stubs.end(),
                                        [](const AcDbStub& stub) { return stub.replacesHandle; });
}

/// Blank lines and the end-of-file mark of DOS are allowed after the EOF record.
void checkRest(const DrawingState& state, WarningLog& log) {
    const std::size_t more =
        state.bytes.find_first_not_of(std::string_view("\r\n \t\x1A\0", 6), state.content.end);
    if (more != std::string::npos)
        log.add(dataAfterEof, more, [] { return L"data after the EOF record is not read"; });
}

} // namespace

std::optional<DocumentError> parseDrawing(DrawingState& state) {
    readStyle(state);
    RecordSource source(state, {state.content.begin, state.bytes.size()});
    WarningLog log;
    StructureParser parser(state, source, log);
    if (!parser.run())
        return errorAt(state, parser.faultOffset(), parser.fault());
    checkRest(state, log);
    state.stubsOfFile = state.stubs.size();
    readHeader(state, log);
    readHandles(state, parser.greatestReference(), log);
    resolveOwners(state, parser.ownerHints());
    state.warnings = log.warnings(state);
    return std::nullopt;
}

} // namespace zuhost
