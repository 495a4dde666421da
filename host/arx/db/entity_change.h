#pragma once

#include "adesk.h"

class AcDbDatabase;
struct resbuf;

namespace zuhost {

/// Checks the values of an entity's list before it is used, and adds a layer that the drawing lacks. Returns
/// false for numbers that are not finite, oversized chunks, an unknown linetype and a null layer.
bool prepareReferences(const resbuf* list, AcDbDatabase& database);

/// Adds a layer with the usual properties; false when the table cannot be opened or the name is invalid.
bool addLayer(AcDbDatabase& database, const ACHAR* name);
/// Returns whether the name stands for the linetype of the layer or of the block.
[[nodiscard]] bool isBuiltInLinetype(const ACHAR* name);

} // namespace zuhost
