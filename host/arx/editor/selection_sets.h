#pragma once

#include "adsdef.h"
#include "dbid.h"

#include <cstddef>
#include <deque>
#include <unordered_map>
#include <vector>

namespace zuhost {

/// Different entities in the order in which they were added.
class SelectionSet {
public:
    /// Returns false when the entity is a member already.
    bool add(AcDbObjectId id);
    /// Returns false when the entity is not a member. Removing the first or the last member takes constant
    /// time.
    bool remove(AcDbObjectId id);
    [[nodiscard]] bool contains(AcDbObjectId id) const { return places_.contains(id); }
    [[nodiscard]] const std::deque<AcDbObjectId>& ids() const { return ids_; }

private:
    std::deque<AcDbObjectId> ids_;
    std::unordered_map<AcDbObjectId, std::size_t> places_; ///< Indices, larger by `removedFirst_`.
    std::size_t removedFirst_ = 0;
};

/// Sets `name` to that of a new set; returns false when the limit of open sets is reached.
bool openSelectionSet(SelectionSet set, ads_name name);
/// Returns the open set with the name; null when there is none.
[[nodiscard]] SelectionSet* findSelectionSet(const ads_name name);

/// The members of the last acedSSGet that selected anything.
[[nodiscard]] std::vector<AcDbObjectId>& previousSelection();

} // namespace zuhost
