#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <unordered_set>

namespace zu {

/// A set that usually holds few values: those are searched one by one, without hashing.
template <typename T>
class SmallSet {
public:
    [[nodiscard]] bool contains(const T& value) const {
        return many_.empty() ? std::find(few_.begin(), end(), value) != end() : many_.contains(value);
    }

    /// Returns false when the value was there.
    bool insert(const T& value) {
        if (contains(value))
            return false;
        if (count_ < kFew) {
            few_[count_++] = value;
            return true;
        }
        if (many_.empty())
            many_.insert(few_.begin(), few_.end());
        many_.insert(value);
        return true;
    }

private:
    static constexpr std::size_t kFew = 16;

    [[nodiscard]] auto end() const { return few_.begin() + static_cast<std::ptrdiff_t>(count_); }

    std::array<T, kFew> few_{};
    std::size_t count_ = 0;
    std::unordered_set<T> many_; ///< All values once there are more than a few.
};

} // namespace zu
