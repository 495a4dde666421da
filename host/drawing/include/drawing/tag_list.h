#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zuhost {

/// One record of an object: group code and value. The value is the text that an ASCII drawing would hold,
/// without its line end and in the drawing's own encoding; binary chunks are hexadecimal digits. So nothing
/// that was read is changed by being held, whatever its meaning.
struct Tag {
    int code = 0;
    std::string value;

    bool operator==(const Tag&) const = default;
};

/// Half-open range of positions in a TagList.
struct TagRange {
    std::size_t first = 0;
    std::size_t last = 0;

    [[nodiscard]] bool empty() const { return first == last; }
};

/// The records of one object in file order, from its type (code 0) to the end of its extended data.
class TagList {
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
    void insert(std::size_t at, Tag tag);
    void insert(std::size_t at, const std::vector<Tag>& tags);
    void insert(std::size_t at, TagList&& tags);
    void erase(TagRange range);
    /// Erases those of the range that the predicate takes, in one pass.
    template <typename Predicate>
    void eraseIf(TagRange range, Predicate predicate) {
        const auto at = [this](std::size_t i) { return tags_.begin() + static_cast<std::ptrdiff_t>(i); };
        tags_.erase(std::remove_if(at(range.first), at(range.last), predicate), at(range.last));
    }
    /// Takes out the class markers (100), which drawings before R13 don't have.
    void eraseMarkers();

    /// Position of the first tag with the code within the range; range.last when there is none.
    [[nodiscard]] std::size_t find(int code, TagRange range) const;

    /// The records after the marker (100, `marker`) up to the next marker or the extended data. When the list
    /// has no markers at all (drawings before R13) everything between the type and the extended data.
    /// Empty range at the end of the list's own data when only this marker is missing.
    [[nodiscard]] TagRange subclass(std::string_view marker) const;

    /// Where `subclass` begins, found without looking at what comes after it.
    [[nodiscard]] std::size_t subclassStart(std::string_view marker) const;
    /// True for the record behind the last one of a subclass.
    [[nodiscard]] static bool endsSubclass(const Tag& tag);

    /// The records of the application group (102, "{name") ... (102, "}"), the brackets included.
    [[nodiscard]] TagRange applicationGroup(std::string_view name) const;

    /// The records of the extended data of one application, its name record (1001) included.
    [[nodiscard]] TagRange extendedData(std::string_view application) const;

    /// Where extended data begins; size() when there is none.
    [[nodiscard]] std::size_t extendedDataStart() const;

    /// Typed look at the first tag with the code in a range; nullopt when missing or not such a number.
    [[nodiscard]] std::optional<double> real(int code, TagRange range) const;
    [[nodiscard]] std::optional<std::int64_t> integer(int code, TagRange range) const;
    [[nodiscard]] std::optional<std::uint64_t> handle(int code, TagRange range) const;
    [[nodiscard]] std::optional<std::string_view> text(int code, TagRange range) const;

    /// Replaces the value of the first tag with the code in the range, or adds one at the range's end.
    /// An equal number keeps its text as it stands.
    void setReal(int code, double value, TagRange range);
    void setInteger(int code, std::int64_t value, TagRange range);
    void setHandle(int code, std::uint64_t value, TagRange range);
    void setText(int code, std::string value, TagRange range);

    bool operator==(const TagList&) const = default;

private:
    std::vector<Tag> tags_;
};

} // namespace zuhost
