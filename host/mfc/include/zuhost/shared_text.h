#pragma once

#include <zuhost/platform/export.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <new>
#include <string_view>
#include <utility>

namespace zuhost {

/// Zero-terminated wide text, a value type. Copies share one buffer until one of them is changed. Different
/// threads may use different copies of a text at the same time.
///
/// The object is one pointer to the characters. A header before them has their number and locates the buffer.
class ZUHOST_API SharedText {
public:
    SharedText() = default;
    /// Throws std::length_error beyond kLongest characters.
    explicit SharedText(std::wstring_view text);
    SharedText(const SharedText& other) noexcept : characters_(other.characters_) {
        if (characters_ != nullptr)
            buffer()->owners.fetch_add(1, std::memory_order_relaxed);
    }
    SharedText(SharedText&& other) noexcept : characters_(std::exchange(other.characters_, nullptr)) {}
    SharedText& operator=(SharedText other) noexcept {
        std::swap(characters_, other.characters_);
        return *this;
    }
    ~SharedText() {
        if (characters_ != nullptr)
            release(buffer(), 1);
    }

    static constexpr std::size_t kLongest = 0x7FFFFFF0;

    [[nodiscard]] const wchar_t* c_str() const { return characters_ != nullptr ? characters_ : L""; }
    [[nodiscard]] std::size_t size() const { return characters_ != nullptr ? header()->size : 0; }
    [[nodiscard]] std::wstring_view view() const { return {c_str(), size()}; }

    /// Returns the characters in an unshared buffer with room for that many; valid until the next change.
    [[nodiscard]] wchar_t* own(std::size_t room) {
        if (!ownsRoom(room))
            *this = copyWithRoom(room);
        return characters_;
    }
    /// Returns the number of characters that the buffer has room for.
    [[nodiscard]] std::size_t room() const {
        if (characters_ == nullptr)
            return 0;
        const std::size_t cells = buffer()->cells - header()->cells;
        return (cells * sizeof(Cell) - sizeof(Header)) / sizeof(wchar_t) - 1;
    }
    /// Sets the text to the first `size` characters of the buffer; `size` is at most room().
    void setSize(std::size_t size) {
        if (ownsRoom(size)) {
            header()->size = static_cast<std::uint32_t>(size);
            characters_[size] = L'\0';
        } else if (size != this->size()) {
            *this = SharedText({c_str(), size});
        }
    }

    void append(std::wstring_view piece);

private:
    friend class TextPool;

    struct Header {
        std::uint32_t size;
        std::uint32_t cells; ///< Number between the start of the buffer's data and the header.
    };
    /// Unit of allocation in a buffer.
    using Cell = std::uint32_t;
    struct Buffer {
        std::atomic<std::uint32_t> owners;
        std::uint32_t cells; ///< Number of cells that follow in memory.

        Cell* data() { return reinterpret_cast<Cell*>(this + 1); }
    };
    explicit SharedText(wchar_t* characters) : characters_(characters) {}

    static Buffer* allocate(std::size_t cells, std::uint32_t owners);
    static void free(Buffer* buffer);
    static void release(Buffer* buffer, std::uint32_t owners) {
        // The last owner needs no atomic decrement: no other thread can access the count.
        if (buffer->owners.load(std::memory_order_acquire) == owners ||
            buffer->owners.fetch_sub(owners, std::memory_order_acq_rel) == owners)
            free(buffer);
    }
    /// Returns the number of cells for a text with its header and final zero.
    static constexpr std::size_t cellsFor(std::size_t size) {
        return (sizeof(Header) + (size + 1) * sizeof(wchar_t) + sizeof(Cell) - 1) / sizeof(Cell);
    }
    /// Constructs a header for a text of that size in the buffer; returns the address for its characters.
    static wchar_t* place(Buffer* buffer, Cell* where, std::size_t size) {
        auto* const header = new (where)
            Header{static_cast<std::uint32_t>(size), static_cast<std::uint32_t>(where - buffer->data())};
        return reinterpret_cast<wchar_t*>(header + 1);
    }

    [[nodiscard]] Header* header() const { return reinterpret_cast<Header*>(characters_) - 1; }
    [[nodiscard]] Buffer* buffer() const {
        return reinterpret_cast<Buffer*>(reinterpret_cast<Cell*>(header()) - header()->cells) - 1;
    }
    [[nodiscard]] bool ownsRoom(std::size_t room) const {
        return characters_ != nullptr && this->room() >= room &&
               buffer()->owners.load(std::memory_order_acquire) == 1;
    }
    [[nodiscard]] SharedText copyWithRoom(std::size_t room) const;

    wchar_t* characters_ = nullptr; ///< Null for an empty text; otherwise zero-terminated, after a header.
};

/// Allocates texts, and memory for their containers, in large numbers. They share a few buffers, each of
/// which lives as long as any text in it. Equal texts created shortly after each other often share their
/// characters.
class ZUHOST_API TextPool {
public:
    TextPool() = default;
    TextPool(const TextPool&) = delete;
    TextPool& operator=(const TextPool&) = delete;
    ~TextPool() { finishBuffer(); }

    [[nodiscard]] SharedText make(std::wstring_view text);

    /// Allocates memory for a small object with the alignment of a pointer; `release` frees it.
    [[nodiscard]] void* allocate(std::size_t size);
    static void release(void* memory);

private:
    struct Recent {
        std::uint32_t mixed = 0;
        std::uint32_t size = 0;
        wchar_t* text = nullptr;
    };

    [[nodiscard]] bool hasRoom(std::size_t cells) const {
        return static_cast<std::size_t>(end_ - next_) >= cells;
    }
    void startBuffer(std::size_t cells);
    void finishBuffer();

    SharedText::Buffer* buffer_ = nullptr;
    SharedText::Cell* next_ = nullptr;
    SharedText::Cell* end_ = nullptr;
    std::size_t nextCells_ = 0;
    std::uint32_t made_ = 0;
    std::array<Recent, 256> recent_{}; ///< Recent texts of the buffer, by a hash of a few characters.
};

} // namespace zuhost
