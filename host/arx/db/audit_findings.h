#pragma once

#include "dbmain.h"
#include "dbobjptr.h"
#include "zuhost/audit.h"

#include <utility>

namespace zuhost {

/// Collects the findings of an audit, and repairs when asked to.
class DatabaseAudit {
public:
    DatabaseAudit(AcDbDatabase& database, bool repairing) : database_(database), repairing_(repairing) {}

    [[nodiscard]] AcDbDatabase& database() const { return database_; }
    [[nodiscard]] std::vector<DatabaseFinding> takeFindings() { return std::move(findings_); }

    void add(AcDbObjectId object, DatabaseFault fault, std::wstring problem, bool isRepaired = false) {
        findings_.push_back({object, fault, std::move(problem), isRepaired});
    }

    /// Opens the object for a change when repairing, also on a locked layer: the references between groups
    /// and entities are not drawn. True when the operation succeeded.
    template <typename T, typename Operation>
    [[nodiscard]] bool repair(AcDbObjectId id, Operation operation) const {
        if (!repairing_)
            return false;
        const AcDbObjectPointer<T> object(id, AcDb::kForWrite, false, true);
        return object.openStatus() == Acad::eOk && operation(*object.object()) == Acad::eOk;
    }
    [[nodiscard]] bool isRepairing() const { return repairing_; }

private:
    AcDbDatabase& database_;
    bool repairing_;
    std::vector<DatabaseFinding> findings_;
};

[[nodiscard]] std::wstring handleText(AcDbHandle handle);

/// The groups of the group dictionary in its order.
[[nodiscard]] std::vector<AcDbObjectId> dictionaryGroups(const AcDbDatabase& database);

/// The members of a group in its order; none when it can't be opened.
[[nodiscard]] std::vector<AcDbObjectId> membersOf(AcDbObjectId group);

struct GroupMembers {
    AcDbObjectId group;
    std::vector<AcDbObjectId> members;
};
/// The groups of the group dictionary in its order, each once.
[[nodiscard]] std::vector<GroupMembers> groupsWithMembers(const AcDbDatabase& database);

// The parts of the audit.

/// Entries of the group dictionary and members of its groups.
void auditGroups(DatabaseAudit& audit);
/// Reactors of the entities, and groups outside of the group dictionary that they name.
void auditReactors(const std::vector<AcDbObjectId>& entities, const std::vector<GroupMembers>& groups,
                   DatabaseAudit& audit);
/// Applications that the entities name in their extended data.
void auditApplications(const std::vector<AcDbObjectId>& entities, DatabaseAudit& audit);

} // namespace zuhost
