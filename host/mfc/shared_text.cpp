#include "zuhost/shared_text.h"

#include <algorithm>
#include <cwchar>
#include <stdexcept>

namespace zuhost {

SharedText::Buffer* SharedText::allocate(std::size_t cells, std::uint32_t owners) {
    void* const memory = ::operator new(sizeof(Buffer) + cells * sizeof(Cell));
    return new (memory) Buffer{{owners}, static_cast<std::uint32_t>(cells)};
}

void SharedText::free(Buffer* buffer) {
    buffer->~Buffer();
    ::operator delete(buffer);
}

SharedText::SharedText(std::wstring_view text) {
    append(text);
}

SharedText SharedText::copyWithRoom(std::size_t room) const {
    if (room > kLongest)
        throw std::length_error("a text is too long");
    Buffer* const fresh = allocate(cellsFor(std::max(room, size())), 1);
    SharedText copy(place(fresh, fresh->data(), size()));
    std::wmemcpy(copy.characters_, c_str(), size() + 1);
    return copy;
}

void SharedText::append(std::wstring_view piece) {
    if (piece.empty())
        return;
    const std::size_t before = size();
    const std::size_t whole = before + piece.size();
    // The piece may be part of this text: keep the old buffer until it is copied.
    const SharedText old =
        ownsRoom(whole) ? SharedText() : std::exchange(*this, copyWithRoom(whole + before / 2));
    std::wmemmove(characters_ + before, piece.data(), piece.size());
    setSize(whole);
}

} // namespace zuhost
