#pragma once

#include "drawing_state.h"

#include <map>

namespace zuhost {

/// Faults that do not keep a drawing from opening. A value that is not what its group code says has that code
/// as its kind.
enum Fault : int {
    repeatedHandle = -20,
    recordOutside,
    unnamedSection,
    repeatedSection,
    headlessSection,
    openSection,
    unnamedTable,
    openTable,
    unnamedBlock,
    openBlock,
    untypedObject,
    tooManyTypes,
    dataBehindEnd,
    unknownCodePage,
};

/// Collects the faults of a drawing. However many there are, few are kept and the others are counted.
class WarningLog {
public:
    /// Adds a fault. `describe` returns its text; it is called only for faults that are kept.
    template <typename Describe>
    void add(int kind, std::uint64_t offset, const Describe& describe) {
        Kind& same = kinds_[kind];
        if (++same.count <= kKeptOfKind)
            same.kept.push_back({offset, describe()});
    }

    /// Returns the faults in file order, with the lines (binary drawings: bytes) where they stand.
    [[nodiscard]] std::vector<DocumentError> warnings(const DrawingState& state) const;

private:
    static constexpr std::size_t kKeptOfKind = 3;
    static constexpr std::size_t kMostWarnings = 100;

    struct Entry {
        std::uint64_t offset = 0;
        std::wstring problem;
    };
    struct Kind {
        std::size_t count = 0;
        std::vector<Entry> kept;
    };

    [[nodiscard]] std::vector<Entry> entries() const;

    std::map<int, Kind> kinds_;
};

} // namespace zuhost
