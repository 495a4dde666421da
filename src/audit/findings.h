#pragma once

#include "quantities/counted_element.h"

#include <zucomn/model/audit.h>
#include <zucomn/model/groups.h>

#include <utility>

namespace zu {

/// Collects the findings of an audit of routes.
class RouteAudit {
public:
    explicit RouteAudit(bool repairing) : repairing_(repairing) {}

    [[nodiscard]] bool isRepairing() const { return repairing_; }
    [[nodiscard]] std::vector<zucomn::RouteFinding> takeFindings() { return std::move(findings_); }

    void add(AcDbObjectId object, zucomn::RouteFault fault, std::wstring problem, bool isRepaired = false) {
        findings_.push_back({object, fault, std::move(problem), isRepaired, {}, std::nullopt});
    }
    void add(zucomn::RouteFinding finding) { findings_.push_back(std::move(finding)); }

private:
    bool repairing_;
    std::vector<zucomn::RouteFinding> findings_;
};

// The parts of the audit of damage.

/// Elements in several route groups of one kind.
void auditMemberships(const std::vector<zucomn::Group>& groups, RouteAudit& audit);
/// Attribute and link records. Returns the block references among the entities, in order, with what their
/// records say.
std::vector<CountedElement> auditRecords(const std::vector<AcDbObjectId>& entities, RouteAudit& audit);

} // namespace zu
