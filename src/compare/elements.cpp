#include "differences.h"
#include "element_matching.h"

namespace zu {

namespace {

using DigestMap = std::unordered_map<AcDbObjectId, std::uint64_t>;

DigestMap digestsOf(const zucomn::ComparedDrawing& drawing) {
    return {drawing.digests.begin(), drawing.digests.end()};
}

} // namespace

std::unordered_set<AcDbObjectId> compareElements(const zucomn::ComparedDrawing& before,
                                                 const zucomn::ComparedDrawing& after, EntityPairs& pairs,
                                                 zucomn::DrawingDifferences& differences) {
    const std::vector<ElementState> old = readElementStates(before.drawing);
    const std::vector<ElementState> now = readElementStates(after.drawing);
    const std::vector<std::optional<std::size_t>> matches = matchElements(old, now);
    const DigestMap oldDigests = digestsOf(before);
    const DigestMap nowDigests = digestsOf(after);
    std::unordered_set<AcDbObjectId> elements;
    std::vector<bool> isKept(old.size(), false);
    for (std::size_t i = 0; i < now.size(); ++i) {
        elements.insert(now[i].id);
        if (!matches[i]) {
            differences.added.push_back(now[i].id);
            continue;
        }
        const ElementState& was = old[*matches[i]];
        isKept[*matches[i]] = true;
        pairs.add(was.id, now[i].id);
        zucomn::ElementChange change{was.id,
                                     now[i].id,
                                     was.position,
                                     now[i].position,
                                     isMoved(was, now[i]),
                                     changedValues(was, now[i])};
        if (change.isMoved || !change.values.empty())
            differences.changed.push_back(std::move(change));
        else if (oldDigests.at(was.id) != nowDigests.at(now[i].id))
            differences.othersChanged.push_back(now[i].id);
    }
    for (std::size_t i = 0; i < old.size(); ++i) {
        elements.insert(old[i].id);
        if (!isKept[i])
            differences.removed.push_back(old[i].id);
    }
    return elements;
}

} // namespace zu
