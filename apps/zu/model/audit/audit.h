#pragma once

#include "model/drawing_file.h"

#include <functional>
#include <string>
#include <vector>

namespace zu::app {

/// A fault of a drawing's routes.
struct Finding {
    std::string handle; ///< Of the object that is at fault.
    std::string problem;
    bool repaired = false;
};

/// Collects what an audit finds and repairs it where asked to.
class Audit {
public:
    explicit Audit(bool repairing) : repairing_(repairing) {}

    [[nodiscard]] bool isRepairing() const { return repairing_; }
    [[nodiscard]] const std::vector<Finding>& findings() const { return findings_; }

    /// A fault that only a person can mend.
    void add(AcDbObjectId id, std::string problem);
    /// A fault and its repair, which says whether it was done; it is tried only when repairing.
    void add(AcDbObjectId id, std::string problem, const std::function<bool()>& repair);

private:
    bool repairing_;
    std::vector<Finding> findings_;
};

/// Audits the routes of a drawing, and repairs in it what can be: groups, then records, then connection
/// points. A repair loses nothing that the library can read.
[[nodiscard]] std::vector<Finding> auditRoutes(DrawingFile& drawing, bool repairing);

// The parts of the audit.

/// Entries of the group dictionary that name no group; members that are gone, listed twice or no entities.
void auditGroups(DrawingFile& drawing, Audit& audit);
/// Members that don't name their group as reactor; entities that name what is gone, what doesn't list them,
/// or the same twice; groups outside the group dictionary.
void auditReactors(const DrawingFile& drawing, const std::vector<AcDbObjectId>& entities, Audit& audit);
/// Groups without members, which are deleted.
void auditEmptyGroups(const DrawingFile& drawing, Audit& audit);
/// Elements in several route groups of one kind. They stay in the lowest-numbered; groups that this empties
/// are deleted.
void auditMemberships(const DrawingFile& drawing, Audit& audit);
/// Attribute and link records that don't have their form.
void auditRecords(DrawingFile& drawing, const std::vector<AcDbObjectId>& entities, Audit& audit);
/// Connection points that join nothing, or more than one element.
void auditConnectionPoints(const DrawingFile& drawing, Audit& audit);

} // namespace zu::app
