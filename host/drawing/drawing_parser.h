#pragma once

#include "drawing_state.h"
#include "object_facts.h"
#include "record_source.h"
#include "warning_log.h"

namespace zuhost {

/// Parses the structure of a drawing in one pass: sections, tables, blocks and objects; each object's handle,
/// owner and position. An unreadable structure ends the pass, other faults are logged. Misplaced records
/// become no objects; they are preserved verbatim.
class StructureParser {
public:
    StructureParser(DrawingState& state, RecordSource& source, WarningLog& log);

    /// Returns false when the structure is unreadable; `faultOffset` and `fault` describe why.
    [[nodiscard]] bool run();

    [[nodiscard]] std::uint64_t faultOffset() const { return faultOffset_; }
    [[nodiscard]] const std::wstring& fault() const { return fault_; }
    [[nodiscard]] const std::vector<OwnerHint>& ownerHints() const { return hints_; }
    /// Returns the highest handle referred to, even when the drawing lacks it.
    [[nodiscard]] std::uint64_t greatestReference() const { return references_.greatest(); }

private:
    bool parseSections();
    bool parseSection();
    bool parseSectionNamed(std::string_view name);
    bool parseHeader();
    bool parseTables();
    bool parseTable();
    bool parseBlocks();
    bool parseBlock();
    bool parseObjects(Container::Kind kind);
    bool skipToSection();
    bool skipRun(const wchar_t* place);
    bool skipObject();
    void warnOfStray(const wchar_t* place);

    AcDbStub* parseObject(std::string* name = nullptr);
    bool parseFacts(ObjectFacts& facts);
    bool parseMember(Container& container);
    void joinToParent(AcDbStub& stub);

    bool next();
    bool nextBesidesComments();
    [[nodiscard]] bool at(std::string_view type) const;
    [[nodiscard]] bool atFrame() const;
    [[nodiscard]] bool atSectionName() const;
    [[nodiscard]] bool atSectionEnd() const;
    void warn(Fault fault, std::uint64_t offset, const std::wstring& problem);
    void warnOfValue();
    bool failAt(std::uint64_t offset, std::wstring problem);

    DrawingState& state_;
    RecordSource& source_;
    WarningLog& log_;
    dxf::Record record_;
    std::string_view type_; ///< Trimmed value of the last record with group code 0.
    std::vector<OwnerHint> hints_;
    References references_;
    AcDbStub* parent_ = nullptr; ///< The POLYLINE or INSERT whose vertices or attributes can follow.
    std::wstring context_;       ///< What is being parsed, for messages.
    std::uint64_t faultOffset_ = 0;
    std::wstring fault_;
};

/// Fills the state from its bytes. Returns nullopt, or why the drawing cannot be opened; the state is then of
/// no use.
[[nodiscard]] std::optional<DocumentError> parseDrawing(DrawingState& state);

} // namespace zuhost
