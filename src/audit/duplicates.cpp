#include "network.h"
#include "problem_text.h"
#include "route/element_place.h"

#include <zucomn/model/elements.h>

#include <dbents.h>
#include <dbobjptr.h>

#include <algorithm>
#include <map>
#include <unordered_set>
#include <utility>

namespace zu {

namespace {

struct Placed {
    std::size_t hash;
    std::size_t place; ///< Among the elements.
};

/// Elements with a prefix, sorted by the hash of their block and place, then by their order.
std::vector<Placed> sortedByPlace(const std::vector<CountedElement>& elements) {
    std::vector<Placed> placed;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (elements[i].code == zucomn::kNoElement || elements[i].definition.isNull())
            continue;
        placed.push_back({elements[i].placeHash, i});
    }
    std::sort(placed.begin(), placed.end(), [](const Placed& a, const Placed& b) {
        return std::pair(a.hash, a.place) < std::pair(b.hash, b.place);
    });
    return placed;
}

ElementPlace placeOf(const AcDbBlockReference& reference) {
    ReferenceFacts facts;
    readFacts(reference, facts);
    return elementPlace(facts);
}

bool isSamePlace(const CountedElement& a, const CountedElement& b) {
    const AcDbObjectPointer<AcDbBlockReference> first(a.id);
    const AcDbObjectPointer<AcDbBlockReference> second(b.id);
    return a.definition == b.definition && first.openStatus() == Acad::eOk &&
           second.openStatus() == Acad::eOk && placeOf(*first.object()) == placeOf(*second.object());
}

} // namespace

void auditDuplicates(std::vector<CountedElement>& elements, RouteAudit& audit) {
    std::map<std::size_t, std::size_t> duplicates; // with what they repeat
    const std::vector<Placed> placed = sortedByPlace(elements);
    for (std::size_t first = 0, i = 1; i < placed.size(); ++i) {
        if (placed[i].hash != placed[first].hash)
            first = i;
        else if (isSamePlace(elements[placed[first].place], elements[placed[i].place]))
            duplicates.emplace(placed[i].place, placed[first].place);
    }
    std::unordered_set<AcDbObjectId> repeating;
    for (const auto& [place, original] : duplicates) {
        repeating.insert(elements[place].id);
        const AcDbObjectId repeated = elements[original].id;
        audit.add(
            {elements[place].id, zucomn::RouteFault::duplicate,
             (ProblemText() << L"stands exactly where " << repeated << L" of the same block stands").take(),
             false, std::vector{repeated}, std::nullopt});
    }
    std::erase_if(elements, [&](const CountedElement& element) { return repeating.contains(element.id); });
}

} // namespace zu
