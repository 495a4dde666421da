#include "reactor_records.h"

#include <algorithm>
#include <optional>

namespace zuhost {

namespace {

using reactor_records::endsHead;
using reactor_records::kBracket;
using reactor_records::kEntry;
using reactor_records::kOpening;

struct ReactorGroup {
    std::size_t opening;
    std::size_t end; ///< Index of the closing bracket, or of the record at which an unclosed group ends.
    bool closed;
};

/// Calls `visit` with each group in order.
template <typename Visit>
void visitGroups(const TagList& tags, Visit visit) {
    const auto isInside = [&tags](std::size_t i) { return i < tags.size() && !endsHead(tags[i].code); };
    for (std::size_t i = 0; isInside(i); ++i) {
        if (tags[i].code != kBracket || tags[i].value != kOpening)
            continue;
        std::size_t last = i + 1;
        while (isInside(last) && tags[last].code != kBracket)
            ++last;
        const bool closed =
            isInside(last) && tags[last].code == kBracket && !tags[last].value.starts_with('{');
        visit(ReactorGroup{i, last, closed});
        i = last - 1;
    }
}

/// Returns the index for a new group: after the handle, before all other records.
std::size_t placeForGroup(const TagList& tags) {
    for (std::size_t i = 1; i < tags.size(); ++i)
        if (tags[i].code != 5 && tags[i].code != 105)
            return i;
    return tags.size();
}

void eraseEmptyGroups(TagList& tags) {
    std::vector<TagRange> empty;
    visitGroups(tags, [&empty](const ReactorGroup& group) {
        if (group.closed && group.end == group.opening + 1)
            empty.push_back({group.opening, group.end + 1});
    });
    for (std::size_t i = empty.size(); i-- > 0;)
        tags.erase(empty[i]);
}

} // namespace

std::vector<ReactorEntry> reactorEntries(const TagView& tags) {
    std::vector<ReactorEntry> entries;
    visitReactorEntries(tags, [&entries](const ReactorEntry& entry) { entries.push_back(entry); });
    return entries;
}

void addReactorEntries(TagList& tags, const std::vector<std::uint64_t>& handles) {
    std::optional<std::size_t> place;
    visitGroups(tags, [&place](const ReactorGroup& group) { place = group.end; });
    const bool isNewGroup = !place;
    TagList added;
    added.reserve(handles.size() + 2);
    if (isNewGroup)
        added.add(kBracket, std::string(kOpening));
    for (const std::uint64_t handle : handles)
        added.add(kEntry, formatHandle(handle));
    if (isNewGroup)
        added.add(kBracket, "}");
    tags.insert(place.value_or(placeForGroup(tags)), std::move(added));
}

void eraseReactorEntries(TagList& tags, const std::vector<ReactorEntry>& entries) {
    if (entries.empty())
        return;
    const Tag* const first = &tags[0];
    auto next = entries.begin();
    tags.eraseIf({entries.front().place, entries.back().place + 1}, [&](const Tag& tag) {
        const bool isErased = next != entries.end() && static_cast<std::size_t>(&tag - first) == next->place;
        next += isErased ? 1 : 0;
        return isErased;
    });
    eraseEmptyGroups(tags);
}

ReactorIndex::ReactorIndex(const std::vector<ReactorEntry>& entries, std::uint32_t tagVersion)
    : version(tagVersion) {
    for (const ReactorEntry& entry : entries)
        present_.insert(entry.handle);
}

void ReactorIndex::add(std::uint64_t handle) {
    if (present_.insert(handle).second)
        added_.emplace(handle, order_++);
}

void ReactorIndex::remove(std::uint64_t handle) {
    present_.erase(handle);
    if (added_.erase(handle) == 0)
        removed_.insert(handle);
}

void ReactorIndex::apply(TagList& tags) {
    std::vector<ReactorEntry> entries = reactorEntries(tags);
    std::erase_if(entries, [this](const ReactorEntry& entry) { return !removed_.contains(entry.handle); });
    eraseReactorEntries(tags, entries);
    std::vector<std::uint64_t> handles;
    for (const auto& [handle, order] : added_)
        handles.push_back(handle);
    std::sort(handles.begin(), handles.end(),
              [this](std::uint64_t a, std::uint64_t b) { return added_.at(a) < added_.at(b); });
    if (!handles.empty())
        addReactorEntries(tags, handles);
    removed_.clear();
    added_.clear();
}

} // namespace zuhost
