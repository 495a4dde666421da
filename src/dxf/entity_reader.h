#pragma once

#include "part_memory.h"
#include "record_input.h"

#include <zucomn/dxf.h>

namespace zu::dxf {

/// Reads entities into a list, from the current record (the type of the first, no end) up to the end of the
/// section or block, which is then the current record.
void readEntities(RecordInput& input, PartMemory& memory, CEntList& list);

} // namespace zu::dxf
