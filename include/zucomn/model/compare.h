#pragma once

#include "../export.h"

#include <dbid.h>
#include <gepnt3d.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

class AcDbDatabase;

namespace zucomn {

/// A drawing to compare, which must stay open, and a digest of the records of each of its entities: entities
/// with equal digests hold the same. Digests come from the host.
struct ComparedDrawing {
    const AcDbDatabase& drawing;
    std::span<const std::pair<AcDbObjectId, std::uint64_t>> digests;
};

// Keys of changes that are no attributes.
inline constexpr const wchar_t* kLayerKey = L"layer";
inline constexpr const wchar_t* kRotationKey = L"rotation"; ///< In degrees.
inline constexpr const wchar_t* kScaleKey = L"scale";       ///< "x, y, z"
inline constexpr const wchar_t* kLinkKey = L"link";         ///< The first text of the link record.
inline constexpr const wchar_t* kNameKey = L"name";         ///< The first value of the element.
inline constexpr const wchar_t* kMarkKey = L"mark";         ///< The second value of the element.

/// A value of an element that differs; nullopt where the element has none.
struct ValueChange {
    std::wstring key; ///< An attribute id, or one of the keys above.
    std::optional<std::wstring> before;
    std::optional<std::wstring> after;
};

/// An element of both drawings that differs.
struct ElementChange {
    AcDbObjectId before;
    AcDbObjectId after;
    AcGePoint3d from; ///< The insertion points.
    AcGePoint3d to;
    bool isMoved = false;
    std::vector<ValueChange> values;
};

/// A group with other members. An object of both drawings is named as that of the second.
struct GroupChange {
    std::wstring name;
    std::wstring nameBefore; ///< Differs from `name` for a group that was renamed.
    std::vector<AcDbObjectId> added;
    std::vector<AcDbObjectId> removed;
};

/// Two elements with connection points that meet, in the order of the drawing.
using Joint = std::pair<AcDbObjectId, AcDbObjectId>;

/// What has to happen to the first drawing to make it the second.
struct DrawingDifferences {
    std::vector<AcDbObjectId> added;   ///< Elements of the second drawing.
    std::vector<AcDbObjectId> removed; ///< Elements of the first drawing.
    std::vector<ElementChange> changed;
    std::vector<GroupChange> groups;
    std::vector<Joint> made;   ///< An element of both drawings is named as that of the second.
    std::vector<Joint> broken; ///< As above.
    // Entities that are no elements, in any block. `othersChanged` also has the elements whose records differ
    // in nothing that `changed` shows (colour, further fields of attributes), all by the second drawing.
    std::vector<AcDbObjectId> othersAdded;
    std::vector<AcDbObjectId> othersRemoved;
    std::vector<AcDbObjectId> othersChanged;

    /// True when the drawings are the same.
    [[nodiscard]] bool isEmpty() const {
        return added.empty() && removed.empty() && changed.empty() && groups.empty() && made.empty() &&
               broken.empty() && othersAdded.empty() && othersRemoved.empty() && othersChanged.empty();
    }
};

/// Compares the elements of model space, the groups, the joints and the other entities of two drawings.
///
/// Elements with equal handles and blocks are the same when they stand on the same place or have the same
/// attributes; attributes do not count when most such elements stand elsewhere, as in a drawing that another
/// program has numbered anew. The others are matched by block, place and attributes, then by handle and
/// block, then by block and place. Places are equal when they differ by less than 0.000001.
///
/// Lists are in the order of their drawing. The time is proportional to the size of the drawings.
[[nodiscard]] ZUCOMN_API DrawingDifferences compareDrawings(const ComparedDrawing& before,
                                                            const ComparedDrawing& after);

} // namespace zucomn
