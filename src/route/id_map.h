#pragma once

#include <dbid.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace zu {

/// Values by object id, in the order in which they were added. Objects that lie side by side are found side
/// by side: a walk over a drawing reads the table in long runs, where one by hash alone jumps about in it.
template <typename T>
class IdMap {
public:
    /// Returns the value of an id, a default one when it is new, and whether it is. Valid until the next
    /// call.
    std::pair<T&, bool> tryEmplace(AcDbObjectId id) {
        if ((entries_.size() + 1) * kPlacesPerEntry > places_.size())
            grow();
        std::uint32_t& place = places_[placeOf(id)];
        const bool isNew = place == kFree;
        if (isNew) {
            place = static_cast<std::uint32_t>(entries_.size());
            entries_.emplace_back(id, T{});
        }
        return {entries_[place].second, isNew};
    }

    /// Returns null for an id that was not added.
    [[nodiscard]] T* find(AcDbObjectId id) {
        if (entries_.empty())
            return nullptr;
        const std::uint32_t place = places_[placeOf(id)];
        return place == kFree ? nullptr : &entries_[place].second;
    }

    void clear() {
        places_.clear();
        entries_.clear();
    }

private:
    static constexpr std::uint32_t kFree = ~std::uint32_t{0};
    static constexpr std::size_t kPlacesPerEntry = 2; ///< At least.
    static constexpr std::size_t kLine = 16;          ///< The places of one line of the processor's cache.
    static constexpr std::size_t kUnit = 16;          ///< Objects are at least so many bytes apart.

    /// The place with the id, or the free one where it belongs: the first from that of its hash on. Ids of
    /// neighbours share a line.
    [[nodiscard]] std::size_t placeOf(AcDbObjectId id) const {
        const std::size_t mask = places_.size() - 1;
        const std::uint64_t unit = std::hash<AcDbObjectId>()(id) / kUnit;
        const std::uint64_t mixed = unit / kLine * 0x9E3779B97F4A7C15ULL;
        std::size_t place = static_cast<std::size_t>((mixed >> 32U) * kLine + unit % kLine) & mask;
        while (places_[place] != kFree && entries_[places_[place]].first != id)
            place = (place + 1) & mask;
        return place;
    }

    void grow() {
        places_.assign(std::max(places_.size() * 2, kLine), kFree);
        for (std::size_t i = 0; i < entries_.size(); ++i)
            places_[placeOf(entries_[i].first)] = static_cast<std::uint32_t>(i);
    }

    std::vector<std::uint32_t> places_; ///< Among the entries. Their number is a power of two.
    std::vector<std::pair<AcDbObjectId, T>> entries_;
};

} // namespace zu
