#pragma once

#include <dbid.h>

#include <string>
#include <vector>

namespace zu::app {

struct SkippedElement {
    std::string handle;
    std::string why;
};

/// The outcome of an edit by handles. Elements that had the value already count as changed.
struct AttributeEdit {
    std::vector<std::string> changed;
    std::vector<SkippedElement> skipped;
};

/// Sets one attribute of each element that has it. Elements without the attribute are reported as skipped
/// where they were named, otherwise left out.
[[nodiscard]] AttributeEdit editAttribute(const std::vector<AcDbObjectId>& elements, const std::string& key,
                                          const std::string& value, bool askedByName);

/// Whether the settings' parameter table lets the attribute be edited. Throws Failure when the table can't be
/// read: the library writes nothing then either.
[[nodiscard]] bool mayEditAttribute(const std::string& key);

} // namespace zu::app
