#pragma once

#include "route/element_place.h"

#include <afxcoll.h>
#include <dbid.h>
#include <gepnt3d.h>
#include <zucomn/model/compare.h>

#include <string>
#include <vector>

namespace zu {

/// What an element is compared by.
struct ElementState {
    AcDbObjectId id;
    std::wstring block; ///< In lower case.
    std::wstring layer;
    AcGePoint3d position;
    ElementPlace place;
    std::wstring link;
    std::vector<std::wstring> attributes; ///< The texts of the record.

    [[nodiscard]] bool hasBlockOf(const ElementState& other) const { return block == other.block; }
    [[nodiscard]] bool hasPlaceOf(const ElementState& other) const { return place == other.place; }
    [[nodiscard]] bool hasAttributesOf(const ElementState& other) const {
        return attributes == other.attributes;
    }
};

/// Reads the block references of model space in drawing order.
[[nodiscard]] std::vector<ElementState> readElementStates(const AcDbDatabase& drawing);

[[nodiscard]] bool isMoved(const ElementState& before, const ElementState& after);

/// Returns what differs apart from the insertion point: rotation, scale, layer, link, name, mark, then the
/// attributes in the order of the second record, then those that the second record lacks.
[[nodiscard]] std::vector<zucomn::ValueChange> changedValues(const ElementState& before,
                                                             const ElementState& after);

} // namespace zu
