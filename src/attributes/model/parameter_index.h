#pragma once

#include <afxcoll.h>

#include <map>
#include <string>
#include <vector>

namespace zu {

/// The parameter table by attribute id: which values an item offers and whether it may be edited. Copies what
/// it needs, so that it outlives the table.
class ParameterIndex {
public:
    explicit ParameterIndex(const CPtrArray& parameters);

    /// The texts offered for an item, in the table's order, each once. An item whose value begins with "E"
    /// is offered nothing of the kinds "A" and "P", one that begins with "A" or "P" nothing of the kind "E";
    /// "S501" is offered everything of its id.
    [[nodiscard]] std::vector<CString> choices(const CString& attributeId, const CString& value) const;

    /// True when a record of the id is marked editable; false for ids that the table lacks.
    [[nodiscard]] bool editable(const CString& attributeId) const;

private:
    struct Candidate {
        wchar_t kind;
        CString text;
    };
    struct Entry {
        bool editable = false;
        std::vector<Candidate> candidates;
    };

    [[nodiscard]] const Entry* find(const CString& attributeId) const;

    std::map<std::wstring, Entry> entries_;
};

} // namespace zu
