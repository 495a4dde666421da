#include "differences.h"

#include <rxclass.h>

#include <algorithm>
#include <optional>
#include <vector>

namespace zu {

namespace {

struct Other {
    AcDbObjectId id;
    std::uint64_t digest;
};

std::vector<Other> othersOf(const zucomn::ComparedDrawing& drawing,
                            const std::unordered_set<AcDbObjectId>& elements) {
    std::vector<Other> others;
    for (const auto& [id, digest] : drawing.digests)
        if (!elements.contains(id))
            others.push_back({id, digest});
    return others;
}

/// Matches by handle and digest, then by digest, then by handle and class.
class OtherMatching {
public:
    OtherMatching(const std::vector<Other>& before, const std::vector<Other>& after)
        : before_(before), after_(after), isTaken_(before.size(), false), matches_(after.size()) {
        for (std::size_t i = before.size(); i-- > 0;)
            byHandle_.insert_or_assign(before[i].id.handle().value(), i);
    }

    std::vector<std::optional<std::size_t>> run() {
        matchByHandle([](const Other& a, const Other& b) { return a.digest == b.digest; });
        matchByDigest();
        matchByHandle(
            [](const Other& a, const Other& b) { return a.id.objectClass() == b.id.objectClass(); });
        return std::move(matches_);
    }

private:
    void match(std::size_t before, std::size_t after) {
        matches_[after] = before;
        isTaken_[before] = true;
    }

    template <typename IsSame>
    void matchByHandle(IsSame isSame) {
        for (std::size_t i = 0; i < after_.size(); ++i) {
            const auto found = byHandle_.find(after_[i].id.handle().value());
            if (!matches_[i] && found != byHandle_.end() && !isTaken_[found->second] &&
                isSame(before_[found->second], after_[i]))
                match(found->second, i);
        }
    }

    void matchByDigest() {
        std::unordered_map<std::uint64_t, std::vector<std::size_t>> left;
        for (std::size_t i = before_.size(); i-- > 0;)
            if (!isTaken_[i])
                left[before_[i].digest].push_back(i);
        for (std::size_t i = 0; i < after_.size(); ++i) {
            const auto found = matches_[i] ? left.end() : left.find(after_[i].digest);
            if (found == left.end() || found->second.empty())
                continue;
            match(found->second.back(), i);
            found->second.pop_back();
        }
    }

    const std::vector<Other>& before_;
    const std::vector<Other>& after_;
    std::unordered_map<Adesk::UInt64, std::size_t> byHandle_;
    std::vector<bool> isTaken_;
    std::vector<std::optional<std::size_t>> matches_;
};

} // namespace

void compareOthers(const zucomn::ComparedDrawing& before, const zucomn::ComparedDrawing& after,
                   const std::unordered_set<AcDbObjectId>& elements, EntityPairs& pairs,
                   zucomn::DrawingDifferences& differences) {
    const std::vector<Other> old = othersOf(before, elements);
    const std::vector<Other> now = othersOf(after, elements);
    const std::vector<std::optional<std::size_t>> matches = OtherMatching(old, now).run();
    std::vector<bool> isKept(old.size(), false);
    for (std::size_t i = 0; i < now.size(); ++i) {
        if (!matches[i]) {
            differences.othersAdded.push_back(now[i].id);
            continue;
        }
        isKept[*matches[i]] = true;
        pairs.add(old[*matches[i]].id, now[i].id);
        if (old[*matches[i]].digest != now[i].digest)
            differences.othersChanged.push_back(now[i].id);
    }
    for (std::size_t i = 0; i < old.size(); ++i)
        if (!isKept[i])
            differences.othersRemoved.push_back(old[i].id);
}

} // namespace zu
