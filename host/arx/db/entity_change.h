#pragma once

class AcDbDatabase;
struct resbuf;

namespace zuhost {

/// Checks the values of an entity's list before it is used, and adds a layer that the drawing lacks. Returns
/// false for numbers that are not finite, oversized chunks, an unknown linetype and a null layer.
bool prepareReferences(const resbuf* list, AcDbDatabase& database);

} // namespace zuhost
