#pragma once

#include <drawing/tag_list.h>

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace zuhost {

/// An entry of the persistent reactors in an object's records.
struct ReactorEntry {
    std::size_t place;
    std::uint64_t handle;
};

/// All entries in order: damaged objects have several groups of them, or one that ends nowhere.
[[nodiscard]] std::vector<ReactorEntry> reactorEntries(const TagList& tags);

/// Appends the entries, in a group that is made when there is none.
void addReactorEntries(TagList& tags, const std::vector<std::uint64_t>& handles);

/// Erases the entries at the places, which ascend, and groups that have become empty.
void eraseReactorEntries(TagList& tags, const std::vector<std::size_t>& places);

/// The persistent reactors of an object that has many, with changes that its records don't show yet. Looking
/// through the records for each change of n reactors would cost their square.
class ReactorIndex {
public:
    ReactorIndex(const std::vector<ReactorEntry>& entries, std::uint32_t tagVersion);

    /// Version of the records that the index describes, together with its changes.
    std::uint32_t version;

    [[nodiscard]] bool has(std::uint64_t handle) const { return present_.contains(handle); }
    void add(std::uint64_t handle);
    void remove(std::uint64_t handle);
    /// Enters the changes into the records.
    void apply(TagList& tags);

private:
    std::unordered_set<std::uint64_t> present_;
    std::unordered_set<std::uint64_t> departed_;               ///< Those that the records still have.
    std::unordered_map<std::uint64_t, std::uint64_t> arrived_; ///< New ones, with their order.
    std::uint64_t order_ = 0;
};

} // namespace zuhost
