#include "part_index.h"

namespace zuhost {

namespace {

bool holdsEntities(const Container& container) {
    return container.kind == Container::Kind::block || container.kind == Container::Kind::entities;
}

} // namespace

const std::vector<AcDbStub*>& PartIndex::of(const Document& document, const AcDbStub& owner) {
    if (!isBuilt_)
        for (const Container& container : document.containers())
            if (holdsEntities(container))
                for (AcDbStub* const member : container.members)
                    if (member->owner != nullptr && isPartType(document.typeName(*member)))
                        parts_[member->owner].push_back(member);
    isBuilt_ = true;
    static const std::vector<AcDbStub*> kNone;
    const auto found = parts_.find(&owner);
    return found != parts_.end() ? found->second : kNone;
}

void PartIndex::add(const Document& document, AcDbStub& part) {
    std::vector<AcDbStub*>& parts = parts_[part.owner];
    const bool isBeforeEnd = !parts.empty() && document.typeName(*parts.back()) == kSequenceEnd;
    parts.insert(isBeforeEnd ? parts.end() - 1 : parts.end(), &part);
    changed_.insert(part.owner);
}

void PartIndex::arrange(Document& document) {
    if (changed_.empty())
        return;
    for (Container& container : document.containers()) {
        if (!holdsEntities(container))
            continue;
        std::vector<AcDbStub*> arranged;
        arranged.reserve(container.members.size());
        for (AcDbStub* const member : container.members) {
            const bool isMoved = changed_.contains(member->owner) && isPartType(document.typeName(*member));
            if (!isMoved)
                arranged.push_back(member);
            if (changed_.contains(member)) {
                const std::vector<AcDbStub*>& parts = parts_[member];
                arranged.insert(arranged.end(), parts.begin(), parts.end());
            }
        }
        container.members = std::move(arranged);
    }
    changed_.clear();
    ++arrangements_;
}

} // namespace zuhost
