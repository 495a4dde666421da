#include "model/audit.h"

#include "text.h"

#include <dbents.h>
#include <dbobjptr.h>
#include <zucomn/model/groups.h>
#include <zuhost/audit.h>
#include <zuhost/names.h>

#include <algorithm>
#include <utility>

namespace zu::app {

namespace {

/// The group that listings name for each entity: a route before others.
class NamedGroups {
public:
    explicit NamedGroups(const AcDbDatabase& drawing) {
        for (const AcDbObjectId id : zucomn::groupsOf(drawing))
            if (const auto group = zucomn::readGroup(id))
                add(*group);
        std::stable_sort(members_.begin(), members_.end());
    }

    [[nodiscard]] std::string of(AcDbObjectId object) const {
        const auto [first, last] = std::equal_range(members_.begin(), members_.end(), Member{object});
        const auto isRoute = [this](const Member& member) { return names_[member.group].isRoute; };
        const auto route = std::find_if(first, last, isRoute);
        if (route != last)
            return names_[route->group].name;
        return first != last ? names_[first->group].name : std::string();
    }

private:
    struct Name {
        std::string name;
        bool isRoute = false;
    };
    struct Member {
        AcDbObjectId id;
        std::size_t group = 0; ///< Its place among the names.

        bool operator<(const Member& other) const { return id < other.id; }
    };

    void add(const zucomn::Group& group) {
        const std::size_t number = names_.size();
        names_.push_back({narrow(group.name), group.isRouteGroup});
        members_.push_back({group.id, number});
        for (const AcDbObjectId member : group.members)
            members_.push_back({member, number});
    }

    std::vector<Name> names_;
    std::vector<Member> members_; ///< By id, then in the order of the groups.
};

class FindingList {
public:
    explicit FindingList(const AcDbDatabase& drawing) : groups_(drawing) {}

    void add(const zuhost::DatabaseFinding& found) {
        add(found, narrow(zuhost::faultCode(found.fault)), zucomn::Severity::error);
    }
    void add(const zucomn::RouteFinding& found) {
        Finding& finding = add(found, narrow(zucomn::faultCode(found.fault)),
                               zucomn::faultSeverity(found.fault), found.position);
        finding.with = handleTexts(found.with);
    }
    void reserve(std::size_t more) { findings_.reserve(findings_.size() + more); }
    [[nodiscard]] std::vector<Finding> take() { return std::move(findings_); }

private:
    template <typename Found>
    Finding& add(const Found& found, std::string code, zucomn::Severity severity,
                 const std::optional<AcGePoint3d>& position = {}) {
        Finding& finding = findings_.emplace_back();
        finding.code = std::move(code);
        finding.severity = severity;
        finding.handle = handleText(found.object);
        finding.problem = narrow(found.problem);
        finding.repaired = found.isRepaired;
        finding.position = position;
        finding.group = groups_.of(found.object);
        if (const AcDbObjectPointer<AcDbEntity> entity(found.object); entity.openStatus() == Acad::eOk) {
            finding.layer = narrow(zuhost::layerName(*entity));
            if (const auto* const element = AcDbBlockReference::cast(entity.object());
                element != nullptr && !position)
                finding.position = element->position();
        }
        return finding;
    }

    NamedGroups groups_;
    std::vector<Finding> findings_;
};

/// Frees each finding once it is added: damaged drawings have many.
template <typename Found>
void addAll(std::vector<Found> found, FindingList& findings) {
    findings.reserve(found.size());
    for (Found& each : found)
        findings.add(std::exchange(each, {}));
}

} // namespace

std::vector<Finding> audit(DrawingFile& drawing, bool repairing) {
    FindingList findings(drawing.database()); // first: repairs delete groups
    addAll(zuhost::auditDatabase(drawing.database(), repairing), findings);
    addAll(zucomn::auditRoutes(drawing.database(), repairing), findings);
    return findings.take();
}

std::vector<std::string> findingCodes() {
    std::vector<std::string> codes;
    for (std::size_t i = 0; i < zuhost::kDatabaseFaults; ++i)
        codes.push_back(narrow(zuhost::faultCode(static_cast<zuhost::DatabaseFault>(i))));
    for (std::size_t i = 0; i < zucomn::kRouteFaults; ++i)
        codes.push_back(narrow(zucomn::faultCode(static_cast<zucomn::RouteFault>(i))));
    return codes;
}

std::string severityName(zucomn::Severity severity) {
    return severity == zucomn::Severity::error ? "error" : "warning";
}

} // namespace zu::app
