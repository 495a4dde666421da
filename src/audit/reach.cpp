#include "network.h"
#include "route/id_map.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>

namespace zu {

namespace {

/// The elements of a network in parts that joints hold together. A gap counts as a joint: it is reported as
/// what it is.
class Parts {
public:
    explicit Parts(const Network& network) : parents_(network.elements().size()) {
        std::iota(parents_.begin(), parents_.end(), std::size_t{0});
        for (const NetworkPoint& point : network.points()) {
            if (point.number == 0)
                numbers_.tryEmplace(network.elementOf(point)).first = point.element;
            for (const std::size_t other : point.others())
                unite(point.element, other);
            if (point.gap)
                unite(point.element, network.points()[point.gap->point].element);
        }
    }

    /// Nullopt for what has no connection points.
    [[nodiscard]] std::optional<std::size_t> of(AcDbObjectId element) {
        const std::size_t* const number = numbers_.find(element);
        return number != nullptr ? std::optional(root(*number)) : std::nullopt;
    }

private:
    std::size_t root(std::size_t number) {
        while (parents_[number] != number)
            number = parents_[number] = parents_[parents_[number]];
        return number;
    }
    void unite(std::size_t a, std::size_t b) { parents_[root(b)] = root(a); }

    IdMap<std::size_t> numbers_;
    std::vector<std::size_t> parents_;
};

using Part = std::vector<AcDbObjectId>;

/// The members that have connection points, in parts in the order of their first members.
std::vector<Part> partsOf(const zucomn::Group& group, Parts& parts) {
    std::unordered_map<std::size_t, std::size_t> places;
    std::vector<Part> found;
    for (const AcDbObjectId member : group.members) {
        const std::optional<std::size_t> part = parts.of(member);
        if (!part)
            continue;
        const auto [place, isNew] = places.try_emplace(*part, found.size());
        if (isNew)
            found.emplace_back();
        found[place->second].push_back(member);
    }
    return found;
}

void report(const std::wstring& group, const Part& part, RouteAudit& audit) {
    const std::size_t others = part.size() - 1;
    std::wstring what = L"it";
    if (others > 0)
        what += L" and " + std::to_wstring(others) + (others == 1 ? L" element" : L" elements") +
                L" joined to it";
    audit.add({part.front(), zucomn::RouteFault::unreached,
               L"no joint connects " + what + L" to the rest of route " + group, false,
               Part(part.begin() + 1, part.end()), std::nullopt});
}

} // namespace

void auditReach(const std::vector<zucomn::Group>& groups, const Network& network, RouteAudit& audit) {
    Parts parts(network);
    for (const zucomn::Group& group : groups) {
        if (!group.isRouteGroup)
            continue;
        const std::vector<Part> found = partsOf(group, parts);
        const auto largest = std::max_element(
            found.begin(), found.end(), [](const Part& a, const Part& b) { return a.size() < b.size(); });
        for (auto part = found.begin(); part != found.end(); ++part)
            if (part != largest)
                report(group.name, *part, audit);
    }
}

} // namespace zu
