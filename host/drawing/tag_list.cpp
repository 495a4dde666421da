#include "drawing/tag_list.h"

#include "dxf_records/number_text.h"

#include <algorithm>
#include <iterator>

namespace zuhost {
namespace {

constexpr int kSubclassMarker = 100;
constexpr int kEmbeddedObject = 101;
constexpr int kGroupBracket = 102;
constexpr int kComment = 999;
constexpr int kFirstExtended = 1000;
constexpr int kApplicationName = 1001;

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Names of applications are case-insensitive. Non-ASCII bytes can be parts of characters and must be equal.
bool sameName(std::string_view a, std::string_view b) {
    if (!isAscii(a) || !isAscii(b))
        return a == b;
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lower(x) == lower(y); });
}

} // namespace

void TagList::insert(std::size_t at, Tag tag) {
    tags_.insert(tags_.begin() + static_cast<std::ptrdiff_t>(std::min(at, size())), std::move(tag));
}

void TagList::insert(std::size_t at, const std::vector<Tag>& tags) {
    tags_.insert(tags_.begin() + static_cast<std::ptrdiff_t>(std::min(at, size())), tags.begin(), tags.end());
}

void TagList::insert(std::size_t at, TagList&& tags) {
    tags_.insert(tags_.begin() + static_cast<std::ptrdiff_t>(std::min(at, size())),
                 std::make_move_iterator(tags.begin()), std::make_move_iterator(tags.end()));
}

void TagList::erase(TagRange range) {
    const std::size_t last = std::min(range.last, size());
    if (range.first >= last)
        return;
    tags_.erase(tags_.begin() + static_cast<std::ptrdiff_t>(range.first),
                tags_.begin() + static_cast<std::ptrdiff_t>(last));
}

void TagList::eraseMarkers() {
    std::erase_if(tags_, [](const Tag& tag) { return tag.code == kSubclassMarker; });
}

std::size_t TagList::find(int code, TagRange range) const {
    const std::size_t last = std::min(range.last, size());
    for (std::size_t i = range.first; i < last; ++i)
        if (tags_[i].code == code)
            return i;
    return range.last;
}

std::size_t TagList::extendedDataStart(std::size_t from) const {
    for (std::size_t i = from; i < size(); ++i)
        if (tags_[i].code >= kFirstExtended)
            return i;
    return size();
}

std::size_t TagList::firstMarker() const {
    std::size_t i = 0;
    while (i < size() && tags_[i].code < kFirstExtended && tags_[i].code != kSubclassMarker)
        ++i;
    return i;
}

std::size_t TagList::subclassStart(std::string_view marker, std::size_t from) const {
    bool anyMarker = false;
    std::size_t i = from;
    for (; i < size() && tags_[i].code < kFirstExtended; ++i) {
        if (tags_[i].code != kSubclassMarker)
            continue;
        anyMarker = true;
        if (tags_[i].value == marker)
            return i + 1;
    }
    return anyMarker ? i : std::min<std::size_t>(1, i);
}

bool TagList::endsSubclass(const Tag& tag) {
    return tag.code == kSubclassMarker || tag.code == kEmbeddedObject || tag.code >= kFirstExtended;
}

TagRange TagList::subclass(std::string_view marker, std::size_t from) const {
    const std::size_t first = subclassStart(marker, from);
    std::size_t last = first;
    while (last < size() && !endsSubclass(tags_[last]))
        ++last;
    return {first, last};
}

TagRange TagList::applicationGroup(std::string_view name) const {
    const std::size_t end = extendedDataStart();
    for (std::size_t i = 0; i < end; ++i) {
        const std::string_view value = tags_[i].value;
        if (tags_[i].code != kGroupBracket || !value.starts_with('{') || value.substr(1) != name)
            continue;
        std::size_t last = i + 1;
        while (last < end && tags_[last].code != kGroupBracket && tags_[last].code != kSubclassMarker)
            ++last;
        const bool closed = last < end && tags_[last].code == kGroupBracket;
        return {i, closed ? last + 1 : last};
    }
    // A new group belongs after the handle, before owner and subclasses.
    for (std::size_t i = 0; i < end && tags_[i].code != kSubclassMarker; ++i)
        if (tags_[i].code == 5 || tags_[i].code == 105)
            return {i + 1, i + 1};
    return {std::min<std::size_t>(1, end), std::min<std::size_t>(1, end)};
}

TagRange TagList::extendedData(std::string_view application, std::size_t from) const {
    for (std::size_t i = extendedDataStart(from); i < size(); ++i) {
        if (tags_[i].code != kApplicationName || !sameName(tags_[i].value, application))
            continue;
        std::size_t last = i + 1;
        while (last < size() && tags_[last].code != kApplicationName && tags_[last].code >= kComment)
            ++last;
        return {i, last};
    }
    return {size(), size()};
}

std::optional<double> TagList::real(int code, TagRange range) const {
    const auto value = text(code, range);
    return value ? parseReal(*value) : std::nullopt;
}

std::optional<std::int64_t> TagList::integer(int code, TagRange range) const {
    const auto value = text(code, range);
    return value ? parseInteger(*value) : std::nullopt;
}

std::optional<std::uint64_t> TagList::handle(int code, TagRange range) const {
    const auto value = text(code, range);
    return value ? parseHandle(*value) : std::nullopt;
}

std::optional<std::string_view> TagList::text(int code, TagRange range) const {
    const std::size_t at = find(code, range);
    if (at >= std::min(range.last, size()))
        return std::nullopt;
    return tags_[at].value;
}

void TagList::setReal(int code, double value, TagRange range) {
    if (real(code, range) != value)
        setText(code, formatReal(value), range);
}

void TagList::setInteger(int code, std::int64_t value, TagRange range) {
    if (integer(code, range) != value)
        setText(code, std::to_string(value), range);
}

void TagList::setHandle(int code, std::uint64_t value, TagRange range) {
    if (handle(code, range) != value)
        setText(code, formatHandle(value), range);
}

void TagList::setText(int code, std::string value, TagRange range) {
    const std::size_t at = find(code, range);
    if (at < std::min(range.last, size()))
        tags_[at].value = std::move(value);
    else
        insert(range.last, {code, std::move(value)});
}

} // namespace zuhost
