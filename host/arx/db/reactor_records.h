#pragma once

#include "drawing/tag_view.h"
#include "dxf_records/number_text.h"

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace zuhost {

/// An entry of the persistent reactors in an object's records.
struct ReactorEntry {
    std::size_t place; ///< Of its record.
    std::uint64_t handle;
};

namespace reactor_records {

inline constexpr int kBracket = 102;
inline constexpr int kMarker = 100;
inline constexpr int kEntry = 330;
inline constexpr int kFirstExtended = 1000;
inline constexpr std::string_view kOpening = "{ACAD_REACTORS";

/// Groups of reactors precede the first subclass marker. After it the same records are data, of X-records for
/// example.
constexpr bool endsHead(int code) {
    return code == kMarker || code >= kFirstExtended;
}

} // namespace reactor_records

/// Calls `visit` with each entry in order. Damaged objects can have several groups of them, or one that is
/// not closed.
template <typename Visit>
void visitReactorEntries(const TagView& tags, Visit visit) {
    using namespace reactor_records;
    bool isInGroup = false;
    for (auto it = tags.begin(); it != tags.end() && !endsHead(it->code); ++it) {
        if (it->code == kBracket)
            isInGroup = it->text == kOpening;
        else if (isInGroup && it->code == kEntry)
            if (const auto handle = it->handle())
                visit(ReactorEntry{it.place(), *handle});
    }
}

/// The same for records in a list, which objects that change have.
template <typename Visit>
void visitReactorEntries(const TagList& tags, Visit visit) {
    using namespace reactor_records;
    bool isInGroup = false;
    for (std::size_t i = 0; i < tags.size() && !endsHead(tags[i].code); ++i) {
        const Tag& tag = tags[i];
        if (tag.code == kBracket)
            isInGroup = tag.value == kOpening;
        else if (isInGroup && tag.code == kEntry)
            if (const auto handle = parseHandle(tag.value))
                visit(ReactorEntry{i, *handle});
    }
}

/// Returns all entries in order.
[[nodiscard]] std::vector<ReactorEntry> reactorEntries(const TagView& tags);

/// Appends the entries to the last group; creates a group when there is none.
void addReactorEntries(TagList& tags, const std::vector<std::uint64_t>& handles);

/// Removes the entries, which are in the order of the records, and groups that become empty.
void eraseReactorEntries(TagList& tags, const std::vector<ReactorEntry>& entries);

/// Index of the persistent reactors of an object that has many. Changes of the records are deferred:
/// searching the records for each of n changes would take quadratic time.
class ReactorIndex {
public:
    ReactorIndex(const std::vector<ReactorEntry>& entries, std::uint32_t tagVersion);

    /// Version of the records that the index and its deferred changes describe.
    std::uint32_t version;

    [[nodiscard]] bool has(std::uint64_t handle) const { return present_.contains(handle); }
    void add(std::uint64_t handle);
    void remove(std::uint64_t handle);
    /// Flushes the deferred changes to the records.
    void apply(TagList& tags);

private:
    std::unordered_set<std::uint64_t> present_;
    std::unordered_set<std::uint64_t> removed_;              ///< Still in the records.
    std::unordered_map<std::uint64_t, std::uint64_t> added_; ///< Not in the records yet; with their order.
    std::uint64_t order_ = 0;
};

} // namespace zuhost
