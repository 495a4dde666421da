#pragma once

#include "entity_pairs.h"

#include <zucomn/model/compare.h>

#include <unordered_set>

namespace zu {

// The parts of a comparison. Each adds what it finds to the differences.

/// Elements of model space; adds the common ones to the pairs. Returns all elements of both drawings.
std::unordered_set<AcDbObjectId> compareElements(const zucomn::ComparedDrawing& before,
                                                 const zucomn::ComparedDrawing& after, EntityPairs& pairs,
                                                 zucomn::DrawingDifferences& differences);
/// Entities that are no elements; adds the common ones to the pairs.
void compareOthers(const zucomn::ComparedDrawing& before, const zucomn::ComparedDrawing& after,
                   const std::unordered_set<AcDbObjectId>& elements, EntityPairs& pairs,
                   zucomn::DrawingDifferences& differences);
void compareGroups(const AcDbDatabase& before, const AcDbDatabase& after, const EntityPairs& pairs,
                   zucomn::DrawingDifferences& differences);
void compareJoints(const AcDbDatabase& before, const AcDbDatabase& after, const EntityPairs& pairs,
                   zucomn::DrawingDifferences& differences);

} // namespace zu
