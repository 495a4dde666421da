#pragma once

#include "records/encoding.h"

#include <gepnt3d.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>
#include <vector>

namespace zu::picture {

/// One record: group code and value, a view into the bytes of the drawing. Drawings have millions of them.
struct Tag {
    Tag(int groupCode, std::string_view value)
        : code(groupCode), size_(static_cast<std::uint32_t>(std::min(value.size(), kLongest))),
          start_(value.data()) {}

    /// The value's text, cut after 4 GB; in binary drawings the bytes of a number.
    [[nodiscard]] std::string_view value() const { return {start_, size_}; }

    int code;

private:
    static constexpr std::size_t kLongest = std::numeric_limits<std::uint32_t>::max();

    std::uint32_t size_;
    const char* start_;
};

/// The form of the values of a drawing.
struct ValueForm {
    bool isBinary = false;
    Encoding encoding;
};

/// The records of one object, read without copying. Numbers are always finite: a missing, unreadable or
/// infinite one gives the default. Where a code is repeated, the first record counts.
class Records {
public:
    Records(std::span<const Tag> tags, const ValueForm& form) : tags_(tags), form_(&form) {}

    [[nodiscard]] std::span<const Tag> tags() const { return tags_; }
    [[nodiscard]] const ValueForm& form() const { return *form_; }
    [[nodiscard]] std::size_t size() const { return tags_.size(); }
    [[nodiscard]] int code(std::size_t at) const { return tags_[at].code; }
    [[nodiscard]] bool has(int code) const { return find(code) != nullptr; }

    [[nodiscard]] double real(int code, double missing = 0.0) const;
    [[nodiscard]] int integer(int code, int missing = 0) const;
    [[nodiscard]] std::uint64_t handle(int code) const;
    [[nodiscard]] std::string_view raw(int code) const;
    [[nodiscard]] QString text(int code) const;
    /// The point with x in `code`, y in `code` + 10, z in `code` + 20.
    [[nodiscard]] AcGePoint3d point(int code, const AcGePoint3d& missing = {}) const;
    [[nodiscard]] std::vector<double> reals(int code) const;
    [[nodiscard]] std::vector<AcGePoint3d> points(int code) const;

    // The same of the record at a position.
    [[nodiscard]] double realAt(std::size_t at, double missing = 0.0) const;
    [[nodiscard]] int integerAt(std::size_t at, int missing = 0) const;
    [[nodiscard]] std::uint64_t handleAt(std::size_t at) const;
    [[nodiscard]] QString textAt(std::size_t at) const;
    /// The point whose x is the record there; the y and z follow it.
    [[nodiscard]] AcGePoint3d pointAt(std::size_t at) const;

    /// The position of the first record with the code from `from` on; size() when there is none.
    [[nodiscard]] std::size_t position(int code, std::size_t from = 0) const;
    /// The records after a subclass marker up to the next one; empty when there is none.
    [[nodiscard]] Records subclass(std::string_view marker) const;
    [[nodiscard]] Records part(std::size_t first, std::size_t last) const;

private:
    [[nodiscard]] const Tag* find(int code) const;
    [[nodiscard]] double real(const Tag& tag, double missing) const;
    [[nodiscard]] int integer(const Tag& tag, int missing) const;

    std::span<const Tag> tags_;
    const ValueForm* form_;
};

} // namespace zu::picture
