#pragma once

#include <zuhost/platform/export.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zuhost {

/// One record of an object: group code and value. The value is the text that an ASCII drawing would hold,
/// without its line end and in the drawing's own encoding; binary chunks are hexadecimal digits. Values are
/// kept as text, so that writing them back restores what was read.
struct Tag {
    int code = 0;
    std::string value;

    bool operator==(const Tag&) const = default;
};

/// Half-open range of places: positions in a TagList, or those of a TagView.
struct TagRange {
    std::size_t first = 0;
    std::size_t last = 0;

    [[nodiscard]] bool empty() const { return first == last; }
};

/// The records of one object in file order, from its type (code 0) to the end of its extended data, to be
/// changed. TagView reads them.
class ZUHOST_API TagList {
public:
    TagList() = default;
    explicit TagList(std::vector<Tag> tags) : tags_(std::move(tags)) {}

    [[nodiscard]] std::size_t size() const { return tags_.size(); }
    [[nodiscard]] bool empty() const { return tags_.empty(); }
    [[nodiscard]] const Tag& operator[](std::size_t i) const { return tags_[i]; }
    [[nodiscard]] Tag& operator[](std::size_t i) { return tags_[i]; }
    [[nodiscard]] auto begin() { return tags_.begin(); }
    [[nodiscard]] auto end() { return tags_.end(); }
    [[nodiscard]] auto begin() const { return tags_.begin(); }
    [[nodiscard]] auto end() const { return tags_.end(); }
    [[nodiscard]] TagRange all() const { return {0, tags_.size()}; }

    void reserve(std::size_t size) { tags_.reserve(size); }
    void add(int code, std::string value) { tags_.push_back({code, std::move(value)}); }
    void add(Tag tag) { tags_.push_back(std::move(tag)); }
    void insert(std::size_t at, Tag tag);
    void insert(std::size_t at, const std::vector<Tag>& tags);
    void insert(std::size_t at, TagList&& tags);
    void erase(TagRange range);
    /// Erases the tags of the range for which the predicate is true, in one pass.
    template <typename Predicate>
    void eraseIf(TagRange range, Predicate predicate) {
        const auto at = [this](std::size_t i) { return tags_.begin() + static_cast<std::ptrdiff_t>(i); };
        tags_.erase(std::remove_if(at(range.first), at(range.last), predicate), at(range.last));
    }
    /// Removes the subclass markers (100), which drawings before R13 lack.
    void eraseMarkers();

    /// Returns the position of the first tag with the code within the range; range.last when there is none.
    [[nodiscard]] std::size_t find(int code, TagRange range) const;
    /// Return the positions of the parts that TagView describes.
    [[nodiscard]] TagRange subclass(std::string_view marker) const;
    [[nodiscard]] TagRange extendedData(std::string_view application) const;
    [[nodiscard]] std::size_t extendedDataStart() const;

    /// Returns whether a record with the code ends a subclass.
    [[nodiscard]] static constexpr bool endsSubclass(int code) {
        return code == 100 || code == 101 || code >= 1000;
    }
    /// Returns whether a record with the code ends the extended data of the application before it.
    [[nodiscard]] static constexpr bool endsApplication(int code) { return code == 1001 || code < 999; }

    /// Replaces the value of the first tag with the code in the range, or inserts a tag at the end of the
    /// range. A tag that holds an equal number keeps its text.
    void setReal(int code, double value, TagRange range);
    void setInteger(int code, std::int64_t value, TagRange range);
    void setHandle(int code, std::uint64_t value, TagRange range);
    void setText(int code, std::string value, TagRange range);

    bool operator==(const TagList&) const = default;

private:
    std::vector<Tag> tags_;
};

} // namespace zuhost
