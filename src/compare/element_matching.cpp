#include "element_matching.h"

#include <functional>
#include <unordered_map>

namespace zu {

namespace {

std::size_t mixed(std::size_t hash, std::size_t value) {
    return (hash ^ value) * 0x9E3779B97F4A7C15ULL + (hash >> 29U);
}

std::size_t hashOfPlace(const ElementState& state) {
    return hashOf(state.place, std::hash<std::wstring>()(state.block));
}

std::size_t hashOfAll(const ElementState& state) {
    std::size_t hash = hashOfPlace(state);
    for (const std::wstring& text : state.attributes)
        hash = mixed(hash, std::hash<std::wstring>()(text));
    return hash;
}

bool isSamePlace(const ElementState& a, const ElementState& b) {
    return a.hasBlockOf(b) && a.hasPlaceOf(b);
}

bool isSame(const ElementState& a, const ElementState& b) {
    return isSamePlace(a, b) && a.hasAttributesOf(b);
}

class Matching {
public:
    Matching(const std::vector<ElementState>& before, const std::vector<ElementState>& after)
        : before_(before), after_(after), matches_(after.size()), isTaken_(before.size(), false) {
        std::unordered_map<Adesk::UInt64, std::size_t> places;
        for (std::size_t i = 0; i < before.size(); ++i)
            places.emplace(before[i].id.handle().value(), i);
        for (const ElementState& state : after) {
            const auto found = places.find(state.id.handle().value());
            const bool isSameBlock = found != places.end() && before[found->second].hasBlockOf(state);
            byHandle_.push_back(isSameBlock ? std::optional(found->second) : std::nullopt);
        }
    }

    std::vector<std::optional<std::size_t>> run() {
        const bool isTrusted = areHandlesTrusted();
        matchByHandle([isTrusted](const ElementState& a, const ElementState& b) {
            return a.hasPlaceOf(b) || (isTrusted && !a.attributes.empty() && a.hasAttributesOf(b));
        });
        matchBy(hashOfAll, isSame);
        matchByHandle([](const ElementState&, const ElementState&) { return true; });
        matchBy(hashOfPlace, isSamePlace);
        return std::move(matches_);
    }

private:
    /// False when most elements with the handle of another stand elsewhere: the drawing was numbered anew.
    [[nodiscard]] bool areHandlesTrusted() const {
        std::size_t pairs = 0;
        std::size_t onPlace = 0;
        for (std::size_t i = 0; i < after_.size(); ++i) {
            if (!byHandle_[i])
                continue;
            ++pairs;
            onPlace += before_[*byHandle_[i]].hasPlaceOf(after_[i]) ? 1 : 0;
        }
        return 2 * onPlace >= pairs;
    }

    void match(std::size_t before, std::size_t after) {
        matches_[after] = before;
        isTaken_[before] = true;
    }

    template <typename IsPlausible>
    void matchByHandle(IsPlausible isPlausible) {
        for (std::size_t i = 0; i < after_.size(); ++i)
            if (!matches_[i] && byHandle_[i] && !isTaken_[*byHandle_[i]] &&
                isPlausible(before_[*byHandle_[i]], after_[i]))
                match(*byHandle_[i], i);
    }

    /// Of several equal elements, the first of one drawing matches the first of the other.
    template <typename Hash, typename Equal>
    void matchBy(Hash hash, Equal equal) {
        const auto hashAt = [hash](const ElementState* state) { return hash(*state); };
        const auto equalAt = [equal](const ElementState* a, const ElementState* b) { return equal(*a, *b); };
        std::unordered_map<const ElementState*, std::vector<std::size_t>, decltype(hashAt), decltype(equalAt)>
            left(before_.size(), hashAt, equalAt);
        for (std::size_t i = before_.size(); i-- > 0;)
            if (!isTaken_[i])
                left[&before_[i]].push_back(i);
        for (std::size_t i = 0; i < after_.size(); ++i) {
            if (matches_[i])
                continue;
            const auto found = left.find(&after_[i]);
            if (found == left.end() || found->second.empty())
                continue;
            match(found->second.back(), i);
            found->second.pop_back();
        }
    }

    const std::vector<ElementState>& before_;
    const std::vector<ElementState>& after_;
    std::vector<std::optional<std::size_t>> byHandle_; ///< Elements of the first drawing with the same block.
    std::vector<std::optional<std::size_t>> matches_;
    std::vector<bool> isTaken_;
};

} // namespace

std::vector<std::optional<std::size_t>> matchElements(const std::vector<ElementState>& before,
                                                      const std::vector<ElementState>& after) {
    return Matching(before, after).run();
}

} // namespace zu
