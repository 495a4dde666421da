#pragma once

#include "gepnt3d.h"

#include <string>
#include <vector>

class AcDbEntity;

namespace zuhost {

/// What an entity without a class of its own draws, by its records.
struct RecordOutline {
    std::vector<std::vector<AcGePoint3d>> paths; ///< In world coordinates.
    std::wstring block;                          ///< Name of the block that draws a dimension.
};

/// Returns the outline of splines, hatches (their boundaries), leaders, solids, faces and dimensions; nothing
/// for other entities.
[[nodiscard]] RecordOutline recordOutline(const AcDbEntity& entity, int chordsPerTurn);

} // namespace zuhost
