#include "handle_index.h"

#include <algorithm>

namespace zuhost {
namespace {

constexpr auto kByHandle = [](const auto& a, const auto& b) { return a.handle < b.handle; };

} // namespace

void HandleIndex::sort() {
    if (!std::is_sorted(entries_.begin(), entries_.end(), kByHandle))
        std::stable_sort(entries_.begin(), entries_.end(), kByHandle);
}

std::vector<AcDbStub*> HandleIndex::build(std::deque<AcDbStub>& stubs) {
    entries_.clear();
    entries_.reserve(stubs.size());
    for (AcDbStub& stub : stubs)
        if (stub.handle != 0)
            entries_.push_back({stub.handle, &stub});
    sort();
    if (!entries_.empty())
        raiseNext(entries_.back().handle + 1);

    std::vector<AcDbStub*> repeated;
    for (std::size_t i = 1; i < entries_.size(); ++i)
        if (entries_[i].handle == entries_[i - 1].handle)
            repeated.push_back(entries_[i].stub);
    const auto sameHandle = [](const Entry& a, const Entry& b) { return a.handle == b.handle; };
    entries_.erase(std::unique(entries_.begin(), entries_.end(), sameHandle), entries_.end());
    std::sort(repeated.begin(), repeated.end(), [](auto* a, auto* b) { return a->offset < b->offset; });
    return repeated;
}

void HandleIndex::completeHandles(std::deque<AcDbStub>& stubs) {
    std::vector<Entry> completed;
    for (AcDbStub& stub : stubs) {
        if (stub.handle != 0)
            continue;
        stub.handle = takeNext();
        stub.hasInternalHandle = !stub.replacesHandle;
        completed.push_back({stub.handle, &stub});
    }
    entries_.insert(entries_.end(), completed.begin(), completed.end());
    sort();
}

AcDbStub* HandleIndex::find(std::uint64_t handle) const {
    if (entries_.empty() || handle < entries_.front().handle)
        return nullptr;
    // Handles differ: an entry is at most as far from another as the difference of their handles. In most
    // files few are missing, and these limits meet.
    std::size_t last = std::min<std::uint64_t>(handle - entries_.front().handle, entries_.size() - 1);
    if (entries_[last].handle < handle)
        return nullptr;
    const std::size_t first = last - std::min<std::uint64_t>(entries_[last].handle - handle, last);
    last = std::min<std::uint64_t>(last, first + (handle - entries_[first].handle));
    const auto begin = entries_.begin();
    const auto at =
        std::lower_bound(begin + static_cast<std::ptrdiff_t>(first),
                         begin + static_cast<std::ptrdiff_t>(last), Entry{handle, nullptr}, kByHandle);
    return at->handle == handle ? at->stub : nullptr;
}

void HandleIndex::add(AcDbStub& stub) {
    const Entry entry{stub.handle, &stub};
    entries_.insert(std::upper_bound(entries_.begin(), entries_.end(), entry, kByHandle), entry);
}

std::uint64_t HandleIndex::takeNext() {
    // Wraps around only in a drawing that uses the last handle of 64 bits.
    while (next_ == 0 || find(next_))
        ++next_;
    return next_++;
}

void HandleIndex::raiseNext(std::uint64_t handle) {
    next_ = handle == 0 ? 1 : std::max(next_, handle);
}

} // namespace zuhost
