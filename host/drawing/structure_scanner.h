#pragma once

#include "drawing_state.h"
#include "ownership.h"
#include "record_source.h"

namespace zuhost {

/// Reads the structure of a drawing in one pass: sections, tables, blocks and objects; each object's handle,
/// owner and place. Throws nothing; the first fault ends the scan.
class StructureScanner {
public:
    StructureScanner(DrawingState& state, RecordSource& source);

    /// False at the first fault, then see `faultOffset` and `fault`.
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
        OwnerHint owner;
        std::string_view name; ///< Code 2.
    };

    bool scanSections();
    bool scanSection();
    bool scanSectionNamed(std::string_view name);
    bool scanHeader();
    bool scanTables();
    bool scanTable();
    bool scanBlocks();
    bool scanBlock();
    bool scanObjects(Container::Kind kind);
    bool scanRest();

    AcDbStub* scanObject(std::string* name = nullptr);
    bool scanFacts(int handleCode, Facts& facts);
    bool noteFact(int handleCode, Facts& facts);
    void noteReference();
    bool scanMember(Container& container);
    void joinToParent(AcDbStub& stub);

    bool next();
    bool nextBesidesComments();
    [[nodiscard]] bool at(std::string_view type) const { return record_.value == type; }
    bool fail(std::wstring problem);
    bool failAt(std::uint64_t offset, std::wstring problem);

    DrawingState& state_;
    RecordSource& source_;
    dxf::Record record_;
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

} // namespace zuhost
