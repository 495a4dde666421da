#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace zu::picture {

/// A set of small keys that lies in one block of memory: pictures fill sets with tens of thousands of places,
/// for which a node each takes several times as long. `Hash` has to mix all bits of its result.
template <typename Key, typename Hash>
class FlatSet {
public:
    /// Returns false when the key is there already.
    bool insert(const Key& key) {
        if ((size_ + 1) * kPlacesPerKey > places_.size())
            grow();
        std::optional<Key>& place = placeOf(key);
        if (place)
            return false;
        place = key;
        ++size_;
        return true;
    }
    [[nodiscard]] std::size_t size() const { return size_; }

private:
    static constexpr std::size_t kPlacesPerKey = 2; ///< At least.
    static constexpr std::size_t kFewest = 64;      ///< A power of two, as all numbers of places.

    /// The place with the key, or the free one where it belongs: the first from that of its hash on.
    std::optional<Key>& placeOf(const Key& key) {
        const std::size_t mask = places_.size() - 1;
        std::size_t at = Hash()(key) & mask;
        while (places_[at] && !(*places_[at] == key))
            at = (at + 1) & mask;
        return places_[at];
    }
    void grow() {
        std::vector<std::optional<Key>> old(places_.empty() ? kFewest : 2 * places_.size());
        std::swap(old, places_);
        for (const std::optional<Key>& key : old)
            if (key)
                placeOf(*key) = key;
    }

    std::vector<std::optional<Key>> places_;
    std::size_t size_ = 0;
};

} // namespace zu::picture
