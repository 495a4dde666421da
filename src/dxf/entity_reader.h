#pragma once

#include "part_memory.h"
#include "record_input.h"

#include <zucomn/dxf.h>

namespace zu::dxf {

/// Reads entities into a list, from the current record (the type of the first entity, not an end) up to the
/// end of the section or block, which is then the current record. Reports faults of records to the input.
void readEntities(RecordInput& input, PartMemory& memory, CEntList& list);

/// Returns whether entities of that type are kept wherever they occur; vertices are kept only in polylines.
[[nodiscard]] bool isKeptEntity(std::string_view typeName);

} // namespace zu::dxf
