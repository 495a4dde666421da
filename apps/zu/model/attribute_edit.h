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

/// Sets one attribute of each element that has it. Elements without the attribute are skipped where they were
/// asked for by name, otherwise left out.
[[nodiscard]] AttributeEdit editAttribute(const std::vector<AcDbObjectId>& elements, const std::string& key,
                                          const std::string& value, bool askedByName);

/// Whether the settings' parameter table lets the attribute be edited. Throws Failure when the table can't be
/// read: as in the library, nothing is written then.
[[nodiscard]] bool mayEditAttribute(const std::string& key);

} // namespace zu::app
