#pragma once

#include <acarray.h>
#include <dbid.h>

#include <optional>

class AcDbObject;

namespace zu {

/// The groups among the persistent reactors of an object.
struct ReactorGroups {
    AcDbObjectIdArray ids;  ///< Each once, in the order of the reactors.
    bool isComplete = true; ///< False when one of them is open elsewhere and can't be read now.
};

/// nullopt when the element can't be opened or has no reactor list. Erased elements are opened, too.
[[nodiscard]] std::optional<ReactorGroups> reactorGroups(AcDbObjectId element);
/// The same of an object that is open.
[[nodiscard]] std::optional<ReactorGroups> reactorGroups(const AcDbObject& element);

} // namespace zu
