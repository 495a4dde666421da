#pragma once

#include <afxstr.h>
#include <dbid.h>

#include <span>
#include <vector>

namespace zu {

/// Something that a drawing says about elements and that the attribute window cannot change.
struct ElementFact {
    CString name;
    CString value;
};

/// Returns what the drawing says about the elements: their number if there are several, kind, link kind,
/// layer, groups, position, heights, and for a single element those that it is joined to. Values that differ
/// become
/// "*各種*". Of more than 1000 elements only the number is returned, so that selecting stays quick. Objects
/// that are no block references are left out.
[[nodiscard]] std::vector<ElementFact> factsOf(std::span<const AcDbObjectId> elements);

} // namespace zu
