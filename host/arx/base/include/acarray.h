#pragma once

#include <algorithm>
#include <vector>

/// A growing array. Removal ignores positions out of range; insertion clamps them. Reading out of range is
/// undefined; only checked builds of the standard library detect it.
template <typename T>
class AcArray {
public:
    AcArray() = default;
    explicit AcArray(int initialLength, int /*growLength*/ = 8) {
        items_.reserve(static_cast<std::size_t>(std::max(initialLength, 0)));
    }

    [[nodiscard]] int length() const { return static_cast<int>(items_.size()); }
    [[nodiscard]] int logicalLength() const { return length(); }
    [[nodiscard]] bool isEmpty() const { return items_.empty(); }

    T& operator[](int index) { return items_[static_cast<std::size_t>(index)]; }
    const T& operator[](int index) const { return items_[static_cast<std::size_t>(index)]; }
    [[nodiscard]] T& at(int index) { return items_[static_cast<std::size_t>(index)]; }
    [[nodiscard]] const T& at(int index) const { return items_[static_cast<std::size_t>(index)]; }
    AcArray& setAt(int index, const T& value) {
        items_[static_cast<std::size_t>(index)] = value;
        return *this;
    }
    [[nodiscard]] T& first() { return items_.front(); }
    [[nodiscard]] const T& first() const { return items_.front(); }
    [[nodiscard]] T& last() { return items_.back(); }
    [[nodiscard]] const T& last() const { return items_.back(); }

    /// Returns the index of the new element.
    int append(T value) {
        items_.push_back(std::move(value));
        return length() - 1;
    }
    AcArray& append(const AcArray& other) {
        const std::vector<T> copy = other.items_;
        items_.insert(items_.end(), copy.begin(), copy.end());
        return *this;
    }
    AcArray& insertAt(int index, const T& value) {
        items_.insert(items_.begin() + std::clamp(index, 0, length()), value);
        return *this;
    }
    AcArray& removeAt(int index) {
        if (index >= 0 && index < length())
            items_.erase(items_.begin() + index);
        return *this;
    }
    AcArray& removeFirst() { return removeAt(0); }
    AcArray& removeLast() { return removeAt(length() - 1); }
    AcArray& removeAll() { return setLogicalLength(0); }
    /// Removes the first equal element at or after `start`; false when there is none.
    bool remove(const T& value, int start = 0) {
        const int index = findFrom(value, start);
        removeAt(index);
        return index >= 0;
    }

    [[nodiscard]] bool contains(const T& value, int start = 0) const { return findFrom(value, start) >= 0; }
    /// Returns the index of the first equal element; -1 when there is none.
    [[nodiscard]] int find(const T& value) const { return findFrom(value, 0); }
    [[nodiscard]] int findFrom(const T& value, int start) const {
        const auto from = items_.begin() + std::clamp(start, 0, length());
        const auto found = std::find(from, items_.end(), value);
        return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
    }

    AcArray& setLogicalLength(int length) {
        items_.resize(static_cast<std::size_t>(std::max(length, 0)));
        return *this;
    }
    AcArray& setPhysicalLength(int length) {
        items_.reserve(static_cast<std::size_t>(std::max(length, 0)));
        return *this;
    }
    AcArray& reverse() {
        std::reverse(items_.begin(), items_.end());
        return *this;
    }
    void swap(int first, int second) { std::swap((*this)[first], (*this)[second]); }

    bool operator==(const AcArray& other) const { return items_ == other.items_; }

    [[nodiscard]] auto begin() { return items_.begin(); }
    [[nodiscard]] auto end() { return items_.end(); }
    [[nodiscard]] auto begin() const { return items_.begin(); }
    [[nodiscard]] auto end() const { return items_.end(); }
    [[nodiscard]] const T* asArrayPtr() const { return items_.data(); }

private:
    std::vector<T> items_;
};

using AcDbVoidPtrArray = AcArray<void*>;
using AcDbIntArray = AcArray<int>;
