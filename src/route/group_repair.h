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

/// Reads groups, each once: to read the kind may take a look at every member.
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

/// True when whatever a repair changes for the element can be opened for write now.
[[nodiscard]] bool canBeRepaired(AcDbObjectId element);

/// Leaves the element in the lowest-numbered of its route groups of the kind only (0: of each kind); groups
/// that this empties are deleted. Nothing happens for what is no route kind. False, with nothing changed,
/// when something that is to be read or changed can't be opened. No kind changes when an element of link kind
/// 0 leaves a group, so that one reader serves for many of them.
[[nodiscard]] bool repairMembership(AcDbObjectId element, int kind, GroupReader& reader);

} // namespace zu
