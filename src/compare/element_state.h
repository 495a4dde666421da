#pragma once

#include <afxcoll.h>
#include <dbid.h>
#include <gepnt3d.h>
#include <zucomn/model/compare.h>

#include <array>
#include <string>
#include <vector>

namespace zu {

/// What an element is compared by.
struct ElementState {
    AcDbObjectId id;
    std::wstring block; ///< In lower case.
    std::wstring layer;
    AcGePoint3d position;
    /// Position, scale, rotation and normal in steps of 0.000001, so that equal places have equal values.
    std::array<double, 10> place{};
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
