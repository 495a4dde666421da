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

/// What can be wrong with routes.
enum class RouteFault {
    emptyGroup,      ///< A group without members.
    membership,      ///< An element in several route groups of one kind.
    attributeRecord, ///< An attribute record that is damaged.
    linkRecord,      ///< A link record that is damaged.
    duplicate,       ///< An element exactly where another of its block stands.
    openEnd,         ///< A connection point that joins nothing.
    gap,             ///< One that lies just beyond the connection tolerance of another.
    crowdedJoint,    ///< A connection point that joins several elements.
    kindMismatch,    ///< Joined elements of different route kinds.
    sizeMismatch,    ///< Joined elements of different sizes.
    heightMismatch,  ///< Joined elements at different heights.
    unreached,       ///< Elements of a route group that no joint connects to the others.
};
inline constexpr std::size_t kRouteFaults = 12; ///< Number of values of RouteFault.

/// Points that lie up to so many times the connection tolerance apart are a gap, not two open ends.
inline constexpr double kGapReach = 10.0;
/// Heights that differ by no more than this, in drawing units, are equal.
inline constexpr double kHeightTolerance = 1.0;

/// How certain it is that a finding is a fault.
enum class Severity {
    warning, ///< To be looked at: it may be meant.
    error,   ///< Damaged, or contradicts itself.
};

/// Returns the stable code of a fault, such as "open-end".
[[nodiscard]] ZUCOMN_API std::wstring_view faultCode(RouteFault fault);
/// Returns the severity that all findings of a fault have.
[[nodiscard]] ZUCOMN_API Severity faultSeverity(RouteFault fault);

/// Something wrong with the routes of a drawing.
struct RouteFinding {
    AcDbObjectId object; ///< The object at fault.
    RouteFault fault = RouteFault::emptyGroup;
    std::wstring problem;
    bool isRepaired = false;
    std::vector<AcDbObjectId> with;      ///< The other elements that the fault concerns.
    std::optional<AcGePoint3d> position; ///< The connection point at fault; nullopt for the whole object.
};

/// Audits the routes of a drawing: groups, then records, in model space and in the members of its groups;
/// then the design of what stands in model space: duplicates, connection points, joints, reach. A duplicate
/// is left out of what follows. When repairing, also repairs what can be repaired without a decision: deletes
/// empty groups, keeps each element in the lowest-numbered of its route groups of a kind, corrects the form
/// of attribute records, removes empty records; the design stays as it is. Returns the findings in that
/// order. Nothing that the library reads is lost. Repair the database itself first (references of groups and
/// entities).
[[nodiscard]] ZUCOMN_API std::vector<RouteFinding> auditRoutes(const AcDbDatabase& drawing, bool repairing);

} // namespace zucomn
