#include "drawing/tag_list.h"

#include "drawing/tag_view.h"
#include "dxf_records/number_text.h"

#include <algorithm>
#include <iterator>

namespace zuhost {
namespace {

constexpr int kSubclassMarker = 100;

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

TagRange TagList::subclass(std::string_view marker) const {
    return TagView(*this).subclass(marker).range();
}

TagRange TagList::extendedData(std::string_view application) const {
    return TagView(*this).extendedData(application).range();
}

std::size_t TagList::extendedDataStart() const {
    return TagView(*this).extendedDataStart();
}

void TagList::setReal(int code, double value, TagRange range) {
    if (TagView(*this).in(range).real(code) != value)
        setText(code, formatReal(value), range);
}

void TagList::setInteger(int code, std::int64_t value, TagRange range) {
    if (TagView(*this).in(range).integer(code) != value)
        setText(code, std::to_string(value), range);
}

void TagList::setHandle(int code, std::uint64_t value, TagRange range) {
    if (TagView(*this).in(range).handle(code) != value)
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
