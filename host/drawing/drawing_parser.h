#pragma once

#include "drawing_state.h"
#include "ownership.h"
#include "record_source.h"
#include "warning_log.h"

namespace zuhost {

/// Reads the structure of a drawing in one pass: sections, tables, blocks and objects; each object's handle,
/// owner and place. What makes the structure unreadable ends the scan, other faults are logged. Records that
/// stand where none belong are no objects: they are part of the stretches that are preserved verbatim.
class StructureParser {
public:
    StructureParser(DrawingState& state, RecordSource& source, WarningLog& log);

    /// False when the structure is unreadable, then see `faultOffset` and `fault`.
    [[nodiscard]] bool run();

    [[nodiscard]] std::uint64_t faultOffset() const { return faultOffset_; }
    [[nodiscard]] const std::wstring& fault() const { return fault_; }
    [[nodiscard]] const std::vector<OwnerHint>& ownerHints() const { return hints_; }
    /// The greatest handle that an object names, whether the drawing has it or not.
    [[nodiscard]] std::uint64_t greatestReference() const { return greatestReference_; }

private:
    /// What of an object's records matters here.
    struct Facts {
        std::uint64_t handle = 0;
        bool unreadableHandle = false;
        OwnerHint owner;
        std::string_view name; ///< Code 2.
    };

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
    bool parseFacts(int handleCode, Facts& facts);
    void collectFact(int handleCode, Facts& facts);
    void collectReference();
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
    std::string_view type_; ///< Of a record with group code 0, without blanks around it.
    std::string scratch_;
    bool inHead_ = false;  ///< Before the first subclass marker of an object.
    bool inGroup_ = false; ///< Within an application group.
    std::vector<OwnerHint> hints_;
    std::uint64_t greatestReference_ = 0;
    AcDbStub* parent_ = nullptr; ///< The POLYLINE or INSERT whose vertices or attributes may follow.
    std::wstring context_;       ///< What is being read, for messages.
    std::uint64_t faultOffset_ = 0;
    std::wstring fault_;
};

/// Fills the state from its bytes. Returns nullopt, or why the drawing cannot be opened; the state is then of
/// no use.
[[nodiscard]] std::optional<DocumentError> parseDrawing(DrawingState& state);

} // namespace zuhost
