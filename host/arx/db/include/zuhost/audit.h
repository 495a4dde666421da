#pragma once

#include <dbid.h>
#include <zuhost/platform/export.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class AcDbDatabase;

namespace zuhost {

enum class DatabaseFault {
    dictionaryEntry,         ///< An entry of the group dictionary that is missing or is no group.
    groupMember,             ///< A member that is missing, erased, no entity, or listed twice.
    reactor,                 ///< A reactor that is missing or repeated, or that disagrees with the group.
    strayGroup,              ///< A group that entities name but that is in no dictionary.
    unregisteredApplication, ///< Extended data of an application that the drawing does not know.
};
inline constexpr std::size_t kDatabaseFaults = 5;

/// Returns the stable code of a fault, such as "stray-group".
[[nodiscard]] ZUHOST_API std::wstring_view faultCode(DatabaseFault fault);

struct DatabaseFinding {
    AcDbObjectId object; ///< The object at fault.
    DatabaseFault fault = DatabaseFault::dictionaryEntry;
    std::wstring problem;
    bool isRepaired = false;
};

/// Audits the references between groups and entities, and the applications of extended data: in the group
/// dictionary, in its groups, and in the entities of model space and those that the groups list. When
/// repairing, also repairs what can be repaired: removes references to missing objects, adds missing
/// reactors, erases stray groups, registers applications. Returns the findings in that order. An object that
/// is open elsewhere stays as it is, and its findings stay unrepaired.
[[nodiscard]] ZUHOST_API std::vector<DatabaseFinding> auditDatabase(AcDbDatabase& database, bool repairing);

} // namespace zuhost
