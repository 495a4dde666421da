#pragma once

#include "../export.h"

#include <dbid.h>
#include <gepnt3d.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class AcDbDatabase;

namespace zucomn {

enum class RouteFault {
    emptyGroup,      ///< A group without members.
    membership,      ///< An element in several route groups of one kind.
    attributeRecord, ///< An attribute record that is damaged.
    linkRecord,      ///< A link record that is damaged.
    openEnd,         ///< A connection point that joins nothing.
    crowdedJoint,    ///< A connection point that joins several elements.
};
inline constexpr std::size_t kRouteFaults = 6;

enum class Severity {
    warning, ///< To be looked at: it may be meant.
    error,   ///< Damaged, or contradicts itself.
};

/// Returns the stable code of a fault, such as "open-end".
[[nodiscard]] ZUCOMN_API std::wstring_view faultCode(RouteFault fault);
[[nodiscard]] ZUCOMN_API Severity faultSeverity(RouteFault fault);

struct RouteFinding {
    AcDbObjectId object; ///< The object at fault.
    RouteFault fault = RouteFault::emptyGroup;
    std::wstring problem;
    bool isRepaired = false;
    std::vector<AcDbObjectId> with;      ///< The other elements that the fault concerns.
    std::optional<AcGePoint3d> position; ///< The connection point at fault; nullopt for the whole object.
};

/// Audits the routes of a drawing: groups, then records, then connection points, in model space and in the
/// members of its groups. When repairing, also repairs what can be repaired without a decision: deletes empty
/// groups, keeps each element in the lowest-numbered of its route groups of a kind, corrects the form of
/// attribute records, removes empty records. Returns the findings in that order. Nothing that the library
/// reads is lost. Repair the database itself first (references of groups and entities).
[[nodiscard]] ZUCOMN_API std::vector<RouteFinding> auditRoutes(const AcDbDatabase& drawing, bool repairing);

} // namespace zucomn
