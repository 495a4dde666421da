#pragma once

#include <dbid.h>
#include <zuhost/platform/export.h>

#include <cstdint>
#include <utility>
#include <vector>

class AcDbDatabase;

namespace zuhost {

/// An entity and a digest of its records.
using EntityDigest = std::pair<AcDbObjectId, std::uint64_t>;

/// Returns the entities of all blocks and layouts, in file order, each with a digest of its records and those
/// of its vertices and attributes. Equal digests mean that two entities hold the same, also in different
/// drawings: the entity's own handle, owner, reactors and extension dictionary do not count, numbers count by
/// value and texts by their characters. The time is proportional to the size of the drawing.
[[nodiscard]] ZUHOST_API std::vector<EntityDigest> entityDigests(const AcDbDatabase& database);

} // namespace zuhost
