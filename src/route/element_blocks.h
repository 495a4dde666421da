#pragma once

#include "connection_points.h"

#include <string>
#include <unordered_map>

namespace zu {

/// What the elements of one block share.
struct ElementBlock {
    AcDbObjectId id; ///< The definition; null when the drawing has none of the name.
    int code = 0;    ///< See elementCode.
    Read<DefinitionPoints> points;
};

/// The blocks of the elements that are read in one pass, each read once. Create one per pass: later changes
/// of a block are not followed.
class ElementBlocks {
public:
    /// The block that the reference names; valid as long as this object.
    const ElementBlock& of(const AcDbBlockReference& reference, const std::wstring& name);

private:
    std::unordered_map<std::wstring, ElementBlock> blocks_; ///< By the name in the references.
};

/// Sets the connection points of a reference to the block with that transform; on failure there are none.
/// Returns eOk or why they can't be read.
Acad::ErrorStatus placePoints(const ElementBlock& block, const AcGeMatrix3d& transform, Points& points);

} // namespace zu
