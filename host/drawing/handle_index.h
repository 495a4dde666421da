#pragma once

#include "drawing/stub.h"

#include <cstdint>
#include <deque>
#include <vector>

namespace zuhost {

/// The objects of a drawing by handle, as one sorted array: handles rise in nearly every file, so that
/// sorting costs little, nothing depends on how they are spread, and an entry takes 16 bytes.
class HandleIndex {
public:
    /// Adds all stubs that have a handle, except those whose handle an earlier one has: returns them, in file
    /// order.
    std::vector<AcDbStub*> build(std::deque<AcDbStub>& stubs);

    /// Assigns new handles above the highest one in the file to the stubs without one.
    void completeHandles(std::deque<AcDbStub>& stubs);

    [[nodiscard]] AcDbStub* find(std::uint64_t handle) const;
    void add(AcDbStub& stub);

    /// Hands out a handle that nobody has.
    std::uint64_t takeNext();
    /// Handles handed out from now on are at least this.
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
