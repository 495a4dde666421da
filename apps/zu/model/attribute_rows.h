#pragma once

#include <dbid.h>

#include <array>
#include <string>
#include <vector>

namespace zu::app {

using AttributeRows = std::vector<std::array<std::string, 9>>;

/// The decoded rows of an element's attribute record; none when it has no record.
[[nodiscard]] AttributeRows readAttributeRows(AcDbObjectId id);

} // namespace zu::app
