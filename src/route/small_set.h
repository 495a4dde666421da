#pragma once

#include <algorithm>
#include <cstddef>
#include <unordered_set>
#include <vector>

namespace zu {

/// A set that usually holds few values: those are searched one by one, without hashing.
template <typename T>
class SmallSet {
public:
    [[nodiscard]] bool contains(const T& value) const {
        return many_.empty() ? std::find(few_.begin(), few_.end(), value) != few_.end()
                             : many_.contains(value);
    }

    /// Returns false when the value was there.
    bool insert(const T& value) {
        if (contains(value))
            return false;
        if (few_.size() < kFew) {
            few_.push_back(value);
            return true;
        }
        if (many_.empty())
            many_.insert(few_.begin(), few_.end());
        many_.insert(value);
        return true;
    }

private:
    static constexpr std::size_t kFew = 16;

    std::vector<T> few_;
    std::unordered_set<T> many_; ///< All values once there are more than a few.
};

} // namespace zu
