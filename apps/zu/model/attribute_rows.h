#pragma once

#include <dbid.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace zu::app {

using AttributeRows = std::vector<std::array<std::string, 9>>;

/// The decoded rows of an element's attribute record; none when it has no record.
[[nodiscard]] AttributeRows readAttributeRows(AcDbObjectId id);

/// The ids of attributes with what users call them, each once, of the first 1,000 elements.
[[nodiscard]] std::vector<std::pair<std::string, std::string>>
attributeIds(std::vector<AcDbObjectId> elements);

} // namespace zu::app
