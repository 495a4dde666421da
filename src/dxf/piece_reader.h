#pragma once

#include "entity_reader.h"

namespace zu::dxf {

/// Reads the entities of a section like readEntities, those of a long file on several threads.
void readInPieces(RecordInput& input, PartMemory& memory, CEntList& list);

} // namespace zu::dxf
