#pragma once

#include <dbid.h>

#include <string>
#include <vector>

namespace zu::app {

struct SkippedElement {
    AcDbObjectId id;
    std::string why;
};

struct AttributeEdit {
    std::vector<AcDbObjectId> changed;
    std::vector<SkippedElement> skipped;
};

/// Sets one attribute of each element that has it. Elements on locked layers, and those whose record can't be
/// written, are skipped; elements without the attribute are passed over, or skipped where they were asked for
/// by name.
[[nodiscard]] AttributeEdit editAttribute(const std::vector<AcDbObjectId>& elements, const std::string& key,
                                          const std::string& value, bool askedByName);

/// Whether the settings' parameter table lets the attribute be edited; without a table all may.
[[nodiscard]] bool mayEditAttribute(const std::string& key);

} // namespace zu::app
