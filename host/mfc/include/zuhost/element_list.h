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

/// The elements of an array, contiguous in own memory or, while they fit, in external memory given to the
/// constructor. Small, because there may be millions of arrays. Not movable: it may point into its owner.
template <typename Element>
class ElementList {
public:
    ElementList() = default;
    /// Uses uninitialised memory for that many elements, which must outlive the list.
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

    /// Reserves room for that many more elements, at least doubling the size so that adding stays cheap.
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

    /// Takes the element by value because it may be one of this list.
    void add(Element element) {
        makeRoom(1);
        std::construct_at(end(), std::move(element));
        ++size_;
    }
    /// Elements of this list may be appended only when there is room for them.
    void append(const Element* first, const Element* last) {
        reserve(size_ + static_cast<int>(last - first));
        std::uninitialized_copy(first, last, end());
        size_ += static_cast<int>(last - first);
    }
    /// Takes the element by value like `add`. For an index beyond the end, first extends the list to it.
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
            // For a long list the system remaps the pages instead of copying them.
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
    unsigned placed_ : 1 = 0; ///< The memory is external.
};

} // namespace zuhost
