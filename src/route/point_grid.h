#pragma once

#include <gepnt3d.h>

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace zu {

/// Plan points by place, each with the number of what it belongs to. Points are found by distance at a cost
/// that does not grow with their number, as long as they do not crowd within the distance.
class PointGrid {
public:
    /// A grid for searches up to the given distance.
    explicit PointGrid(double greatestDistance);

    /// Points that are not finite lie nowhere and are not kept.
    void add(const AcGePoint3d& point, int owner);
    void remove(const AcGePoint3d& point, int owner);

    /// Appends the owner of each point within the distance, one for each such point, in no order.
    void find(const AcGePoint3d& centre, double distance, std::vector<int>& owners) const;

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
        std::int32_t next; ///< In the same cell, or in the chain of free entries.
    };
    static constexpr std::int32_t kEnd = -1;

    [[nodiscard]] double index(double coordinate) const;
    [[nodiscard]] Cell cellOf(const AcGePoint3d& point) const { return {index(point.x), index(point.y)}; }
    void findInCell(const Cell& cell, const AcGePoint3d& centre, double distance,
                    std::vector<int>& owners) const;

    double cellSize_;
    std::unordered_map<Cell, std::int32_t, CellHash> cells_; ///< First entry of each cell.
    std::vector<Entry> entries_;
    std::int32_t free_ = kEnd;
};

} // namespace zu
