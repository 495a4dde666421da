#include "reactor_records.h"

#include "dxf_records/number_text.h"

#include <algorithm>

namespace zuhost {

namespace {

constexpr int kBracket = 102;
constexpr int kMarker = 100;
constexpr int kEntry = 330;
constexpr std::string_view kOpening = "{ACAD_REACTORS";

struct ReactorGroup {
    std::size_t opening;
    std::size_t end; ///< Index of the closing bracket, or of the record at which an unclosed group ends.
    bool closed;
};

std::vector<ReactorGroup> reactorGroups(const TagList& tags) {
    std::vector<ReactorGroup> groups;
    const std::size_t end = tags.extendedDataStart();
    for (std::size_t i = 0; i < end; ++i) {
        if (tags[i].code != kBracket || tags[i].value != kOpening)
            continue;
        std::size_t last = i + 1;
        while (last < end && tags[last].code != kBracket && tags[last].code != kMarker)
            ++last;
        const bool closed = last < end && tags[last].code == kBracket && !tags[last].value.starts_with('{');
        groups.push_back({i, last, closed});
        i = last - 1;
    }
    return groups;
}

/// Returns the index for a new group: after the handle, before all other records.
std::size_t placeForGroup(const TagList& tags) {
    for (std::size_t i = 1; i < tags.size(); ++i)
        if (tags[i].code != 5 && tags[i].code != 105)
            return i;
    return tags.size();
}

void eraseEmptyGroups(TagList& tags) {
    const std::vector<ReactorGroup> groups = reactorGroups(tags);
    for (auto group = groups.rbegin(); group != groups.rend(); ++group)
        if (group->closed && group->end == group->opening + 1)
            tags.erase({group->opening, group->end + 1});
}

} // namespace

std::vector<ReactorEntry> reactorEntries(const TagList& tags) {
    std::vector<ReactorEntry> entries;
    for (const ReactorGroup& group : reactorGroups(tags))
        for (std::size_t i = group.opening + 1; i < group.end; ++i)
            if (tags[i].code == kEntry)
                if (const auto handle = parseHandle(tags[i].value))
                    entries.push_back({i, *handle});
    return entries;
}

void addReactorEntries(TagList& tags, const std::vector<std::uint64_t>& handles) {
    std::vector<Tag> entries;
    for (const std::uint64_t handle : handles)
        entries.push_back({kEntry, formatHandle(handle)});
    const std::vector<ReactorGroup> groups = reactorGroups(tags);
    if (!groups.empty()) {
        tags.insert(groups.back().end, entries);
        return;
    }
    entries.insert(entries.begin(), {kBracket, std::string(kOpening)});
    entries.push_back({kBracket, "}"});
    tags.insert(placeForGroup(tags), entries);
}

void eraseReactorEntries(TagList& tags, const std::vector<std::size_t>& places) {
    if (places.empty())
        return;
    const Tag* const first = &tags[0];
    auto next = places.begin();
    tags.eraseIf({places.front(), places.back() + 1}, [&](const Tag& tag) {
        const bool isErased = next != places.end() && static_cast<std::size_t>(&tag - first) == *next;
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
    std::vector<std::size_t> places;
    for (const ReactorEntry& entry : reactorEntries(tags))
        if (removed_.contains(entry.handle))
            places.push_back(entry.place);
    eraseReactorEntries(tags, places);
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
