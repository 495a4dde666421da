#include "zuhost/shared_text.h"

#include <algorithm>
#include <memory>

namespace zuhost {

namespace {

/// Every live text keeps its whole buffer, so the first buffer is small.
constexpr std::size_t kFirstCells = 4000;
constexpr std::size_t kMostCells = 1'000'000;
constexpr std::size_t kLongestPooled = 500;
/// The pool takes this many references to its buffer in advance, hands one to each text without an atomic
/// operation, and releases the rest at once.
constexpr std::uint32_t kPoolOwners = 1U << 30U;

/// Returns a hash of a few of the characters.
std::uint32_t mix(std::wstring_view text) {
    const auto at = [text](std::size_t i) { return static_cast<std::uint32_t>(text[i]); };
    const std::size_t last = text.size() - 1;
    const std::uint32_t mixed = at(0) + at(last / 2) * 31 + at(last - last / 4) * 961 + at(last) * 29791;
    return (mixed + static_cast<std::uint32_t>(last)) * 2654435769U;
}

// Plain loops, because fields are short: the set-up of the library's functions would cost more than the work.

bool isEqual(std::wstring_view left, std::wstring_view right) {
    std::size_t i = 0;
    while (i < right.size() && left[i] == right[i])
        ++i;
    return i == right.size();
}

void copyShort(std::wstring_view text, wchar_t* place) {
    for (std::size_t i = 0; i < text.size(); ++i)
        place[i] = text[i];
    place[text.size()] = L'\0';
}

} // namespace

SharedText TextPool::make(std::wstring_view text) {
    if (text.empty() || text.size() > kLongestPooled)
        return SharedText(text);
    const std::size_t cells = SharedText::cellsFor(text.size());
    if (!hasRoom(cells))
        startBuffer(cells);
    ++made_;
    const std::uint32_t mixed = mix(text);
    Recent& recent = recent_[mixed >> 24U];
    if (recent.mixed != mixed || recent.size != text.size() || !isEqual({recent.text, text.size()}, text)) {
        recent = {mixed, static_cast<std::uint32_t>(text.size()),
                  SharedText::place(buffer_, next_, text.size())};
        copyShort(text, recent.text);
        next_ += cells;
    }
    return SharedText(recent.text);
}

void* TextPool::allocate(std::size_t size) {
    constexpr std::size_t kAlign = alignof(void*) / sizeof(SharedText::Cell);
    const std::size_t cells = (sizeof(void*) + size) / sizeof(SharedText::Cell) + kAlign;
    if (!hasRoom(cells))
        startBuffer(cells);
    const auto used = static_cast<std::size_t>(next_ - buffer_->data());
    SharedText::Cell* const place = next_ + (kAlign - used % kAlign) % kAlign;
    next_ = place + cells - kAlign;
    ++made_;
    return new (place) SharedText::Buffer*(buffer_) + 1;
}

void TextPool::release(void* memory) {
    SharedText::release(static_cast<SharedText::Buffer**>(memory)[-1], 1);
}

void TextPool::startBuffer(std::size_t cells) {
    finishBuffer();
    nextCells_ = std::clamp(nextCells_ * 4, kFirstCells, kMostCells);
    buffer_ = SharedText::allocate(std::max(nextCells_, cells), kPoolOwners);
    next_ = buffer_->data();
    end_ = next_ + buffer_->cells;
    recent_.fill({});
}

void TextPool::finishBuffer() {
    if (buffer_ != nullptr)
        SharedText::release(buffer_, kPoolOwners - made_);
    buffer_ = nullptr;
    next_ = nullptr;
    end_ = nullptr;
    made_ = 0;
}

} // namespace zuhost
