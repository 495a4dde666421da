#pragma once

#include <acarray.h>
#include <afxstr.h>
#include <dbid.h>

#include <optional>
#include <unordered_map>
#include <vector>

namespace zu {

/// A group that lists an element.
struct ElementGroup {
    AcDbObjectId id;
    CString name;
    int kind = -1; ///< As RootComn_GetRootKind2 reads it.
};

/// Reads groups, each once: determining the kind can take a visit to every member.
class GroupReader {
public:
    /// The groups that list an element, in the order of its reactors; a reactor alone makes no member.
    /// nullopt when the element or one of its groups can't be opened.
    [[nodiscard]] std::optional<std::vector<ElementGroup>> groupsOf(AcDbObjectId element);

private:
    const ElementGroup& read(AcDbObjectId id);

    std::unordered_map<AcDbObjectId, ElementGroup> known_;
};

/// The lowest-numbered route group of the kind (0: of any known kind); null when there is none.
[[nodiscard]] const ElementGroup* lowestNumbered(const std::vector<ElementGroup>& groups, int kind);

/// True when every object that a repair of the element may change can be opened for write now.
[[nodiscard]] bool canBeRepaired(AcDbObjectId element);

/// Removes the element from its route groups of the kind (0: of each kind), except the lowest-numbered one,
/// and deletes groups that become empty. Does nothing for numbers that are no route kind. Returns false, with
/// nothing changed, when an object to be read or changed can't be opened. Removing an element of link kind 0
/// changes no group's kind, so one reader can serve many such elements.
[[nodiscard]] bool repairMembership(AcDbObjectId element, int kind, GroupReader& reader);

} // namespace zu
