#pragma once

#include "drawing/stub.h"

#include <cstdint>
#include <deque>
#include <vector>

namespace zuhost {

/// The objects of a drawing by handle, in a sorted array: handles ascend in nearly every file, so that
/// sorting costs little, and an entry takes 16 bytes.
class HandleIndex {
public:
    /// Adds all stubs with a handle. Returns those whose handle an earlier stub has, which are not added, in
    /// file order.
    std::vector<AcDbStub*> build(std::deque<AcDbStub>& stubs);

    /// Assigns new handles above the highest one in the file to the stubs without one.
    void completeHandles(std::deque<AcDbStub>& stubs);

    [[nodiscard]] AcDbStub* find(std::uint64_t handle) const;
    void add(AcDbStub& stub);

    /// Returns an unused handle and reserves it.
    std::uint64_t takeNext();
    /// Sets the lower limit of new handles.
    void raiseNext(std::uint64_t handle);
    [[nodiscard]] std::uint64_t next() const { return next_; }

private:
    struct Entry {
        std::uint64_t handle;
        AcDbStub* stub;
    };

    void sort();

    std::vector<Entry> entries_;
    std::uint64_t next_ = 1;
};

} // namespace zuhost
