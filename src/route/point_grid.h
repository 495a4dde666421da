#pragma once

#include "point_cluster.h"

#include <gepnt3d.h>

#include <array>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zu {

/// Plan points in a grid, each with the number of its owner. Finds owners by distance at a cost that does not
/// grow with the number of points; many points of one owner at one place cost about as much as one.
class PointGrid {
public:
    /// A grid for searches up to the given distance.
    explicit PointGrid(double greatestDistance);

    /// Prepares for so many points.
    void reserve(std::size_t points);
    /// Adds all points of an owner; skips points that are not finite.
    void add(std::span<const AcGePoint3d> points, int owner);
    /// Removes all points of an owner.
    void remove(int owner);

    /// Calls `take` with the owner of each point within the distance, in no particular order and possibly
    /// several times per owner, until it returns false. Skips owners for which `skips` returns true.
    template <typename Skips, typename Take>
    void visit(const AcGePoint3d& centre, double distance, Skips skips, Take take) const {
        for (const std::int32_t first : chainsNear(centre, distance)) {
            for (std::int32_t at = first; at != kEnd;) {
                const Entry& entry = entries_[static_cast<std::size_t>(at)];
                if (!skips(entry.owner) && isWithin(entry, centre, distance) && !take(entry.owner))
                    return;
                at = entry.next;
            }
        }
    }

private:
    struct Cell {
        double column;
        double row;
        bool operator==(const Cell&) const = default;
    };
    struct CellHash {
        std::size_t operator()(const Cell& cell) const noexcept;
    };
    struct Entry {
        AcGePoint3d point;
        int owner;
        std::int32_t cluster; ///< The cluster of the owner's points; kEnd for a single point.
        std::int32_t next;    ///< In the same cell, or in the chain of free entries.
        std::int32_t nextOwn; ///< Of the same owner.
    };
    static constexpr std::int32_t kEnd = -1;
    static constexpr std::int32_t kLeft = -2; ///< The slot of a cell that has no entries any more.

    [[nodiscard]] double index(double coordinate) const;
    [[nodiscard]] Cell cellOf(const AcGePoint3d& point) const { return {index(point.x), index(point.y)}; }
    using Run = std::pair<Cell, std::vector<AcGePoint3d>>;
    [[nodiscard]] std::vector<Run> runs(std::span<const AcGePoint3d> points) const;
    [[nodiscard]] std::size_t placeOf(const Cell& cell) const;
    [[nodiscard]] std::int32_t firstOf(const Cell& cell) const;
    void grow(std::size_t slots);
    void addEntry(const Cell& cell, const AcGePoint3d& point, int owner, std::int32_t cluster);
    void unlink(std::int32_t place);
    /// First entries of the cells within the distance of the centre; kEnd for empty ones.
    [[nodiscard]] std::array<std::int32_t, 9> chainsNear(const AcGePoint3d& centre, double distance) const;
    [[nodiscard]] bool isWithin(const Entry& entry, const AcGePoint3d& centre, double distance) const {
        return entry.cluster == kEnd ? distance >= entry.point.distanceTo(centre)
                                     : clusters_.at(entry.cluster).hasWithin(centre, distance);
    }

    double cellsPerUnit_;
    /// The first entry of each cell, which is that of its point. Cells lie in a table where each is found
    /// from its hash on, in the next free place. The number of places is a power of two.
    std::vector<std::int32_t> slots_;
    std::size_t usedSlots_ = 0;
    std::vector<Entry> entries_;
    std::int32_t free_ = kEnd;
    std::vector<std::int32_t> owners_; ///< The first entry of each.
    std::unordered_map<std::int32_t, PointCluster> clusters_;
    std::int32_t nextCluster_ = 0;
};

} // namespace zu
