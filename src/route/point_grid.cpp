#include "point_grid.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace zu {

namespace {

/// Cells are larger than the distance, so that a search mostly meets one cell only.
constexpr double kCellsPerDistance = 16.0;
constexpr double kLeastCell = 1e-3;

bool isFinite(const AcGePoint3d& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

/// The cells that a distance around a coordinate meets: at most two, but for coordinates so large that their
/// rounding passes a cell's size; there only an equal coordinate is near.
struct Indices {
    std::array<double, 3> values{};
    int count = 0;

    void add(double value) {
        const auto end = values.begin() + count;
        if (std::find(values.begin(), end, value) == end)
            values[static_cast<std::size_t>(count++)] = value;
    }
};

std::uint64_t mixed(std::uint64_t bits) {
    bits ^= bits >> 32U;
    bits *= 0x9E3779B97F4A7C15ULL;
    return bits ^ (bits >> 29U);
}

} // namespace

PointGrid::PointGrid(double greatestDistance)
    : cellSize_(std::max(greatestDistance * kCellsPerDistance, kLeastCell)) {}

std::size_t PointGrid::CellHash::operator()(const Cell& cell) const noexcept {
    const std::uint64_t column = mixed(std::bit_cast<std::uint64_t>(cell.column));
    return static_cast<std::size_t>(mixed(column + std::bit_cast<std::uint64_t>(cell.row)));
}

double PointGrid::index(double coordinate) const {
    return std::floor(coordinate / cellSize_) + 0.0; // no negative zero: equal cells have equal bits
}

void PointGrid::add(const AcGePoint3d& point, int owner) {
    if (!isFinite(point))
        return;
    std::int32_t place = free_;
    if (place != kEnd) {
        free_ = entries_[static_cast<std::size_t>(place)].next;
    } else {
        place = static_cast<std::int32_t>(entries_.size());
        entries_.emplace_back();
    }
    const auto [cell, isNew] = cells_.try_emplace(cellOf(point), kEnd);
    entries_[static_cast<std::size_t>(place)] = {point, owner, cell->second};
    cell->second = place;
}

void PointGrid::remove(const AcGePoint3d& point, int owner) {
    const auto cell = isFinite(point) ? cells_.find(cellOf(point)) : cells_.end();
    if (cell == cells_.end())
        return;
    std::int32_t* link = &cell->second;
    while (*link != kEnd) {
        Entry& entry = entries_[static_cast<std::size_t>(*link)];
        if (entry.owner == owner && entry.point == point) {
            const std::int32_t place = *link;
            *link = entry.next;
            entry.next = free_;
            free_ = place;
            break;
        }
        link = &entry.next;
    }
    if (cell->second == kEnd)
        cells_.erase(cell);
}

void PointGrid::find(const AcGePoint3d& centre, double distance, std::vector<int>& owners) const {
    if (!isFinite(centre))
        return;
    const auto indices = [&](double coordinate) {
        // A little more than the distance, for the rounding of measured distances.
        const double reach = distance * (1.0 + 1e-9) + std::abs(coordinate) * 1e-15;
        Indices met;
        met.add(index(coordinate - reach));
        met.add(index(coordinate));
        met.add(index(coordinate + reach));
        return met;
    };
    const Indices columns = indices(centre.x);
    const Indices rows = indices(centre.y);
    for (int i = 0; i < columns.count; ++i)
        for (int k = 0; k < rows.count; ++k)
            findInCell(
                {columns.values[static_cast<std::size_t>(i)], rows.values[static_cast<std::size_t>(k)]},
                centre, distance, owners);
}

void PointGrid::findInCell(const Cell& cell, const AcGePoint3d& centre, double distance,
                           std::vector<int>& owners) const {
    const auto found = cells_.find(cell);
    if (found == cells_.end())
        return;
    for (std::int32_t at = found->second; at != kEnd;) {
        const Entry& entry = entries_[static_cast<std::size_t>(at)];
        if (distance >= entry.point.distanceTo(centre))
            owners.push_back(entry.owner);
        at = entry.next;
    }
}

} // namespace zu
