#pragma once

#include "part_memory.h"
#include "record_input.h"

#include <zucomn/dxf.h>

#include <cstdint>
#include <deque>
#include <limits>
#include <memory>
#include <string_view>

namespace zu::dxf {

/// Entities in the order of the file. Deletes those that are not moved to a list.
using EntityRun = std::deque<std::unique_ptr<CEnt>>;

/// Reading the entities of a section or block.
struct EntityReading {
    RecordInput& input;
    PartMemory& memory;
    CEntList* list; ///< Null for a piece, whose entities go into the run.
    EntityRun run{};
    CPline* polyline = nullptr;  ///< The last polyline, which owns the vertices that follow.
    bool hasStrayVertex = false; ///< A vertex followed no polyline.
};

inline constexpr std::uint64_t kToTheEnd = std::numeric_limits<std::uint64_t>::max();

/// Reads entities into the list or run, from the current record (the type of the first entity, not an end) up
/// to the end of the section or block, which is then the current record. Reports faults of records to the
/// input.
///
/// Returns true when it came to the entity whose type stands at the offset `stop` in the file, which is then
/// the current record, and did not read it.
bool readEntities(EntityReading& reading, std::uint64_t stop = kToTheEnd);

/// Returns whether entities of that type are kept wherever they occur; vertices are kept only in polylines.
[[nodiscard]] bool isKeptEntity(std::string_view typeName);

} // namespace zu::dxf
