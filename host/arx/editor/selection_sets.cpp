#include "selection_sets.h"

#include "acdbads.h"
#include "acedads.h"

#include <map>
#include <optional>
#include <utility>

namespace zuhost {

namespace {

constexpr std::size_t kMaxOpen = 128;
/// Stands for the database in a set's name: databases count from 1.
constexpr std::int64_t kSetMark = -1;

std::map<std::int64_t, SelectionSet>& openSets() {
    static std::map<std::int64_t, SelectionSet> sets;
    return sets;
}

} // namespace

bool SelectionSet::add(AcDbObjectId id) {
    const bool isNew = places_.emplace(id, ids_.size() + removedFirst_).second;
    if (isNew)
        ids_.push_back(id);
    return isNew;
}

bool SelectionSet::remove(AcDbObjectId id) {
    const auto found = places_.find(id);
    if (found == places_.end())
        return false;
    const std::size_t place = found->second - removedFirst_;
    places_.erase(found);
    if (place == 0) {
        ids_.pop_front();
        ++removedFirst_;
        return true;
    }
    ids_.erase(ids_.begin() + static_cast<std::ptrdiff_t>(place));
    for (std::size_t i = place; i < ids_.size(); ++i)
        --places_[ids_[i]];
    return true;
}

bool openSelectionSet(SelectionSet set, ads_name name) {
    static std::int64_t last = 0;
    if (openSets().size() >= kMaxOpen)
        return false;
    openSets().emplace(++last, std::move(set));
    name[0] = last;
    name[1] = kSetMark;
    return true;
}

SelectionSet* findSelectionSet(const ads_name name) {
    if (name == nullptr || name[1] != kSetMark)
        return nullptr;
    const auto found = openSets().find(name[0]);
    return found == openSets().end() ? nullptr : &found->second;
}

std::vector<AcDbObjectId>& previousSelection() {
    static std::vector<AcDbObjectId> ids;
    return ids;
}

} // namespace zuhost

namespace {

std::optional<AcDbObjectId> entityOf(const ads_name name) {
    AcDbObjectId id;
    return acdbGetObjectId(id, name) == Acad::eOk ? std::optional(id) : std::nullopt;
}

bool isNil(const std::int64_t* name) {
    return name == nullptr || ads_name_nil(name);
}

} // namespace

int acedSSAdd(const std::int64_t* entity, const std::int64_t* set, ads_name result) {
    if (result == nullptr)
        return RTERROR;
    const auto id = isNil(entity) ? std::optional(AcDbObjectId()) : entityOf(entity);
    if (!id || (!id->isNull() && id->isErased()))
        return RTERROR;
    if (isNil(set)) {
        zuhost::SelectionSet created;
        if (!id->isNull())
            created.add(*id);
        return zuhost::openSelectionSet(std::move(created), result) ? RTNORM : RTERROR;
    }
    zuhost::SelectionSet* const known = zuhost::findSelectionSet(set);
    if (known == nullptr || id->isNull())
        return RTERROR;
    known->add(*id);
    ads_name_set(set, result);
    return RTNORM;
}

int acedSSDel(const ads_name entity, const ads_name set) {
    zuhost::SelectionSet* const known = zuhost::findSelectionSet(set);
    const auto id = entityOf(entity);
    return known != nullptr && id && known->remove(*id) ? RTNORM : RTERROR;
}

int acedSSLength(const ads_name set, Adesk::Int32* length) {
    const zuhost::SelectionSet* const known = zuhost::findSelectionSet(set);
    if (known == nullptr || length == nullptr)
        return RTERROR;
    *length = static_cast<Adesk::Int32>(known->ids().size());
    return RTNORM;
}

int acedSSMemb(const ads_name entity, const ads_name set) {
    const zuhost::SelectionSet* const known = zuhost::findSelectionSet(set);
    const auto id = entityOf(entity);
    return known != nullptr && id && known->contains(*id) ? RTNORM : RTERROR;
}

int acedSSName(const ads_name set, Adesk::Int32 index, ads_name entity) {
    const zuhost::SelectionSet* const known = zuhost::findSelectionSet(set);
    if (known == nullptr || entity == nullptr || index < 0 ||
        static_cast<std::size_t>(index) >= known->ids().size())
        return RTERROR;
    return acdbGetAdsName(entity, known->ids()[static_cast<std::size_t>(index)]) == Acad::eOk ? RTNORM
                                                                                              : RTERROR;
}

int acedSSFree(const ads_name set) {
    if (zuhost::findSelectionSet(set) == nullptr)
        return RTERROR;
    zuhost::openSets().erase(set[0]);
    return RTNORM;
}
