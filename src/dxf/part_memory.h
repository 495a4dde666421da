#pragma once

#include "arena.h"
#include "part_text.h"

#include <zucomn/dxf.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <vector>

namespace zu::dxf {

/// A text of an entity as in the file; its bytes follow this header. Decoded on access.
struct KeptText {
    const PartText* form;
    std::size_t size;

    [[nodiscard]] std::string_view bytes() const { return {reinterpret_cast<const char*>(this + 1), size}; }
};

/// A piece of a long text.
struct KeptPart {
    const KeptText* text;
};

/// Owns the entities of a drawing, or of a piece of it, and the texts and names they refer to.
struct PartMemory {
    PartMemory() = default;
    /// Memory for a piece, whose texts are decoded as those of the drawing; to become one of its pieces.
    explicit PartMemory(PartMemory& drawing) : text(drawing.text) {}

private:
    PartText ownText_;

public:
    Arena arena;
    PartText& text = ownText_;
    NamePool names;
    std::vector<std::unique_ptr<PartMemory>> pieces;

    const KeptText* keep(std::string_view bytes) {
        const std::string_view kept = text.part(bytes);
        void* const start = arena.allocate(sizeof(KeptText) + kept.size());
        auto* const made = ::new (start) KeptText{&text, kept.size()};
        std::memcpy(made + 1, kept.data(), kept.size());
        return made;
    }

    template <typename Element>
    void append(KeptArray<Element>& array, const Element& element) {
        if (array.count == array.capacity)
            grow(array);
        ::new (array.items + array.count) Element(element);
        ++array.count;
    }

private:
    template <typename Element>
    void grow(KeptArray<Element>& array) {
        if (array.items != nullptr && arena.extend(array.items + array.capacity, sizeof(Element))) {
            ++array.capacity;
            return;
        }
        const std::size_t capacity = array.count * 2 + 1;
        auto* const items = static_cast<Element*>(arena.allocate(capacity * sizeof(Element)));
        std::copy_n(array.items, array.count, items);
        array.items = items;
        array.capacity = capacity;
    }
};

} // namespace zu::dxf

inline void* CEnt::operator new(std::size_t size, zu::dxf::Arena& arena) {
    return arena.allocate(size);
}
