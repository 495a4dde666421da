#include "network.h"
#include "route/element_code.h"
#include "route/element_place.h"

#include <zucomn/model/elements.h>

#include <dbents.h>
#include <dbobjptr.h>

#include <algorithm>
#include <functional>
#include <map>
#include <unordered_map>
#include <utility>

namespace zu {

namespace {

struct Placed {
    std::size_t hash;
    std::size_t place; ///< Among the references.
};

/// Elements with a prefix, sorted by the hash of their block and place, then by their order.
std::vector<Placed> sortedByPlace(const std::vector<AcDbObjectId>& references) {
    std::unordered_map<AcDbObjectId, bool> isElementBlock;
    std::vector<Placed> placed;
    for (std::size_t i = 0; i < references.size(); ++i) {
        const AcDbObjectPointer<AcDbBlockReference> reference(references[i]);
        const AcDbObjectId block =
            reference.openStatus() == Acad::eOk ? reference->blockTableRecord() : AcDbObjectId();
        if (block.isNull())
            continue;
        const auto [kind, isNew] = isElementBlock.try_emplace(block, false);
        if (isNew)
            kind->second = elementCode(reference->blockName()) != zucomn::kNoElement;
        if (kind->second)
            placed.push_back(
                {hashOf(elementPlace(*reference.object()), std::hash<AcDbObjectId>()(block)), i});
    }
    std::sort(placed.begin(), placed.end(), [](const Placed& a, const Placed& b) {
        return std::pair(a.hash, a.place) < std::pair(b.hash, b.place);
    });
    return placed;
}

bool isSamePlace(AcDbObjectId a, AcDbObjectId b) {
    const AcDbObjectPointer<AcDbBlockReference> first(a);
    const AcDbObjectPointer<AcDbBlockReference> second(b);
    return first->blockTableRecord() == second->blockTableRecord() &&
           elementPlace(*first.object()) == elementPlace(*second.object());
}

} // namespace

std::vector<AcDbObjectId> auditDuplicates(const std::vector<AcDbObjectId>& references, RouteAudit& audit) {
    std::vector<AcDbObjectId> single = references;
    std::map<std::size_t, AcDbObjectId> duplicates; // by place, with what they repeat
    const std::vector<Placed> placed = sortedByPlace(references);
    for (std::size_t first = 0, i = 1; i < placed.size(); ++i) {
        if (placed[i].hash != placed[first].hash)
            first = i;
        else if (isSamePlace(references[placed[first].place], references[placed[i].place]))
            duplicates.emplace(placed[i].place, references[placed[first].place]);
    }
    for (const auto& [place, original] : duplicates) {
        single[place].setNull();
        audit.add({references[place], zucomn::RouteFault::duplicate,
                   L"stands exactly where " + handleText(original) + L" of the same block stands", false,
                   std::vector{original}, std::nullopt});
    }
    std::erase(single, AcDbObjectId());
    return single;
}

} // namespace zu
