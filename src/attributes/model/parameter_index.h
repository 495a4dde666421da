#pragma once

#include <afxcoll.h>

#include <map>
#include <string>
#include <vector>

namespace zu {

/// Index of the parameter table by attribute id: the texts that an item offers and whether it is editable. It
/// does not refer to the table after construction.
class ParameterIndex {
public:
    explicit ParameterIndex(const CPtrArray& parameters);

    /// Returns the texts offered for an item, in table order without duplicates. An item whose value begins
    /// with "E" is not offered texts of kind "A" or "P", one whose value begins with "A" or "P" none of kind
    /// "E". "S501" is offered all texts of its id.
    [[nodiscard]] std::vector<CString> choices(const CString& attributeId, const CString& value) const;

    /// Returns true when the table is missing or has no records.
    [[nodiscard]] bool isEmpty() const { return entries_.empty(); }

    /// Returns true when a record of the id is marked editable.
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
