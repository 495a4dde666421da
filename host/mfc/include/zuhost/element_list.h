#pragma once

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace zuhost {

/// The elements of an array, one after the other, in memory of their own or, while they fit, in a place that
/// was given. Small, since there are arrays by the million; not moved, since the place stays where it is.
template <typename Element>
class ElementList {
public:
    ElementList() = default;
    /// Uninitialised memory for so many elements, which outlives the list.
    ElementList(void* place, int room)
        : items_(static_cast<Element*>(place)), room_(static_cast<unsigned>(room) & kRoomMask), placed_(1) {}
    ElementList(const ElementList& other) { append(other.begin(), other.end()); }
    ElementList& operator=(const ElementList& other) {
        if (this != &other) {
            clear();
            append(other.begin(), other.end());
        }
        return *this;
    }
    ~ElementList() {
        clear();
        release();
    }

    [[nodiscard]] int size() const { return size_; }
    [[nodiscard]] Element* begin() { return items_; }
    [[nodiscard]] Element* end() { return items_ + size_; }
    [[nodiscard]] const Element* begin() const { return items_; }
    [[nodiscard]] const Element* end() const { return items_ + size_; }

    /// Room for so many more, and for as many again as there are, so that adding often costs little.
    void makeRoom(int more) {
        if (more > room() - size_)
            grow(more);
    }
    void reserve(int room) {
        if (room > this->room())
            moveTo(room);
    }
    void resize(int size) {
        if (size < size_) {
            std::destroy(begin() + size, end());
        } else {
            if (size > room())
                grow(size - size_);
            std::uninitialized_value_construct(end(), begin() + size);
        }
        size_ = size;
    }
    void clear() { resize(0); }
    void shrink() {
        if (size_ < room() && placed_ == 0)
            moveTo(size_);
    }

    /// By value: it may be an element of this list.
    void add(Element element) {
        makeRoom(1);
        std::construct_at(end(), std::move(element));
        ++size_;
    }
    /// Of another list, or of room that is there.
    void append(const Element* first, const Element* last) {
        reserve(size_ + static_cast<int>(last - first));
        std::uninitialized_copy(first, last, end());
        size_ += static_cast<int>(last - first);
    }
    /// By value like `add`; an index beyond the end first makes the list so long.
    void insert(int index, int count, Element element) {
        resize(std::max(index, size_));
        if (count == 0)
            return;
        makeRoom(count);
        std::construct_at(end(), std::move(element));
        std::uninitialized_fill_n(end() + 1, count - 1, *end());
        size_ += count;
        std::rotate(begin() + index, end() - count, end());
    }
    void erase(int index, int count) {
        std::move(begin() + index + count, end(), begin() + index);
        resize(size_ - count);
    }

private:
    [[nodiscard]] int room() const { return static_cast<int>(room_); }
    void grow(int more) {
        if (more > std::numeric_limits<int>::max() - size_)
            throw std::length_error("an array is too long");
        const auto twice = static_cast<unsigned>(size_) * 2U;
        const auto largest = static_cast<unsigned>(std::numeric_limits<int>::max());
        reserve(std::max(size_ + more, static_cast<int>(std::min(twice, largest))));
    }
    void moveTo(int room) {
        constexpr std::size_t kSize =
            sizeof(Element); // NOLINT(bugprone-sizeof-expression): it may be a pointer.
        const std::size_t bytes = std::max<std::size_t>(static_cast<std::size_t>(room) * kSize, 1);
        room_ = static_cast<unsigned>(room) & kRoomMask;
        if constexpr (std::is_trivially_copyable_v<Element>) {
            // The system moves the pages of a long list without touching them.
            if (placed_ == 0) {
                items_ = static_cast<Element*>(allocated(std::realloc(items_, bytes)));
                return;
            }
        }
        auto* const items = static_cast<Element*>(allocated(std::malloc(bytes)));
        std::uninitialized_move(begin(), end(), items);
        std::destroy(begin(), end());
        release();
        items_ = items;
        placed_ = 0;
    }
    void release() {
        if (placed_ == 0)
            std::free(items_);
    }
    static void* allocated(void* memory) {
        if (memory == nullptr)
            throw std::bad_alloc();
        return memory;
    }

    static constexpr unsigned kRoomMask = 0x7FFFFFFF;

    Element* items_ = nullptr;
    int size_ = 0;
    unsigned room_ : 31 = 0;
    unsigned placed_ : 1 = 0; ///< The memory is the given place.
};

} // namespace zuhost
