#include "connection_indexes.h"

#include "group_access.h"
#include "state/library_state.h"

#include <dbgroup.h>
#include <dbobjptr.h>

namespace zu {

namespace {

bool canBeOpened(AcDbObjectId group) {
    const AcDbObjectPointer<AcDbGroup> opened(group);
    return opened.openStatus() == Acad::eOk;
}

} // namespace

ConnectionIndexes& ConnectionIndexes::of(AcDbDatabase& database) {
    auto& all = state().connectionIndexes;
    auto found = all.find(&database);
    if (found == all.end() || found->second->cache_.isClosed()) {
        std::erase_if(all, [](const auto& entry) { return entry.second->cache_.isClosed(); });
        found = all.emplace(&database, std::make_unique<ConnectionIndexes>(database)).first;
    }
    found->second->cache_.checkLayer();
    return *found->second;
}

const CandidateIndex* ConnectionIndexes::ofGroup(AcDbObjectId group, double distance) {
    if (!canBeOpened(group))
        return nullptr;
    if (generation_ != cache_.generation()) {
        groups_.clear();
        generation_ = cache_.generation();
    }
    GroupEntry& entry = groups_[group];
    cache_.watchGroup(group);
    if (!entry.index || entry.version != cache_.groupVersion(group) || !entry.index->isUsable(distance)) {
        entry.version = cache_.groupVersion(group);
        entry.index = std::make_unique<CandidateIndex>(cache_, *groupMembers(group), distance);
    }
    entry.index->update();
    return entry.index.get();
}

const CandidateIndex& ConnectionIndexes::ofList(const AcDbObjectIdArray& candidates, double distance) {
    if (!list_ || !list_->isUsable(distance) || !(list_->candidates() == candidates))
        list_ = std::make_unique<CandidateIndex>(cache_, candidates, distance);
    list_->update();
    return *list_;
}

} // namespace zu
