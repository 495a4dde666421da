#pragma once

#include "drawing_state.h"

#include <map>

namespace zuhost {

/// Faults that a drawing opens with. The kind of an unreadable value is its group code.
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
    dataAfterEof,
    unknownCodePage,
};

/// Collects the faults of a drawing: keeps the first of each kind and counts the others.
class WarningLog {
public:
    /// Adds a fault. `describe` returns its text and is called only for faults that are kept.
    template <typename Describe>
    void add(int kind, std::uint64_t offset, const Describe& describe) {
        Kind& same = kinds_[kind];
        if (++same.count <= kKeptOfKind)
            same.kept.push_back({offset, describe()});
    }

    /// Returns the faults in file order, with their lines (binary drawings: bytes).
    [[nodiscard]] std::vector<DocumentError> warnings(const DrawingState& state) const;

private:
    static constexpr std::size_t kKeptOfKind = 3;
    static constexpr std::size_t kMaxWarnings = 100;

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
