#pragma once

#include <afxstr.h>
#include <dbid.h>

#include <unordered_map>
#include <vector>

namespace zu {

/// A group that holds an element.
struct ElementGroup {
    AcDbObjectId id;
    CString name;
    int kind = -1; ///< As RootComn_GetRootKind2 reads it.
};

/// Reads groups, each once: to read the kind may take a look at every member.
class GroupReader {
public:
    /// The groups of an element in the order of its reactors; empty when it has none or can't be opened.
    [[nodiscard]] std::vector<ElementGroup> groupsOf(AcDbObjectId element);

private:
    const ElementGroup& read(AcDbObjectId id);

    std::unordered_map<AcDbObjectId, ElementGroup> known_;
};

/// The lowest-numbered route group of the kind (0: of any known kind); null when there is none.
[[nodiscard]] const ElementGroup* lowestNumbered(const std::vector<ElementGroup>& groups, int kind);

/// Leaves the element in the lowest-numbered of its route groups of the kind only; groups that this empties
/// are deleted. Nothing happens for what is no route kind.
void settleMembership(AcDbObjectId element, int kind);
/// The same for each route kind. No kind changes when an element of link kind 0 leaves a group, so that one
/// reader serves for many of them.
void settleMembership(AcDbObjectId element, GroupReader& reader);

} // namespace zu
