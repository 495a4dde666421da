#pragma once

#include "part_memory.h"
#include "record_input.h"

#include <zucomn/dxf.h>

namespace zu::dxf {

/// Reads entities into a list, from the current record (the type of the first, no end) up to the end of the
/// section or block, which is then the current record.
/// Reports what was wrong with their records.
void readEntities(RecordInput& input, PartMemory& memory, CEntList& list);

/// Whether entities of that type are kept wherever they stand: vertices are not.
[[nodiscard]] bool isKeptEntity(std::string_view typeName);

} // namespace zu::dxf
