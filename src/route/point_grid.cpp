#include "point_grid.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <utility>

namespace zu {

namespace {

/// Cells are larger than the distance, so that most searches visit a single cell.
constexpr double kCellsPerDistance = 16.0;
constexpr double kLeastCell = 1e-3;
/// More points of one owner are kept as clusters.
constexpr std::size_t kFewPoints = 8;
constexpr std::size_t kFewestSlots = 16;
constexpr std::size_t kSlotsPerCell = 2; ///< At least.

bool isFinite(const AcGePoint3d& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

/// The cells within a distance of a coordinate: at most two, and up to three where rounding exceeds a cell's
/// size. The latter may miss cells between them, which does not matter: there only equal coordinates are
/// near.
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
    : cellSize_(std::max(greatestDistance * kCellsPerDistance, kLeastCell)), slots_(kFewestSlots) {}

void PointGrid::reserve(std::size_t points) {
    entries_.reserve(points);
    grow(std::bit_ceil(points * kSlotsPerCell));
}

/// The place of the cell, or the free one where it belongs.
std::size_t PointGrid::placeOf(const Cell& cell) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t place = CellHash()(cell) & mask;
    while (slots_[place].isUsed && !(slots_[place].cell == cell))
        place = (place + 1) & mask;
    return place;
}

std::int32_t PointGrid::firstOf(const Cell& cell) const {
    return slots_[placeOf(cell)].first;
}

/// Makes the table at least as large, and drops cells without entries.
void PointGrid::grow(std::size_t slots) {
    const std::vector<Slot> old =
        std::exchange(slots_, std::vector<Slot>(std::max({slots, slots_.size(), kFewestSlots})));
    usedSlots_ = 0;
    for (const Slot& slot : old) {
        if (slot.first == kEnd)
            continue;
        slots_[placeOf(slot.cell)] = slot;
        ++usedSlots_;
    }
}

std::size_t PointGrid::CellHash::operator()(const Cell& cell) const noexcept {
    const std::uint64_t column = mixed(std::bit_cast<std::uint64_t>(cell.column));
    return static_cast<std::size_t>(mixed(column + std::bit_cast<std::uint64_t>(cell.row)));
}

double PointGrid::index(double coordinate) const {
    return std::floor(coordinate / cellSize_) + 0.0; // no negative zero: equal cells have equal bits
}

/// The points by cell; those that are not finite are left out.
std::vector<PointGrid::Run> PointGrid::runs(std::span<const AcGePoint3d> points) const {
    std::vector<Run> runs;
    std::unordered_map<Cell, std::size_t, CellHash> places;
    for (const AcGePoint3d& point : points) {
        if (!isFinite(point))
            continue;
        const auto [place, isNew] = places.try_emplace(cellOf(point), runs.size());
        if (isNew)
            runs.emplace_back(place->first, std::vector<AcGePoint3d>());
        runs[place->second].second.push_back(point);
    }
    return runs;
}

void PointGrid::add(std::span<const AcGePoint3d> points, int owner) {
    if (points.size() <= kFewPoints) {
        for (const AcGePoint3d& point : points)
            if (isFinite(point))
                addEntry(cellOf(point), point, owner, kEnd);
        return;
    }
    for (Run& run : runs(points)) {
        const AcGePoint3d first = run.second.front();
        clusters_.emplace(nextCluster_, std::move(run.second));
        addEntry(run.first, first, owner, nextCluster_++);
    }
}

void PointGrid::addEntry(const Cell& at, const AcGePoint3d& point, int owner, std::int32_t cluster) {
    std::int32_t place = free_;
    if (place != kEnd) {
        free_ = entries_[static_cast<std::size_t>(place)].next;
    } else {
        place = static_cast<std::int32_t>(entries_.size());
        entries_.emplace_back();
    }
    if ((usedSlots_ + 1) * kSlotsPerCell > slots_.size())
        grow(entries_.size() * kSlotsPerCell * 2 > slots_.size() ? slots_.size() * 2 : slots_.size());
    Slot& slot = slots_[placeOf(at)];
    usedSlots_ += slot.isUsed ? 0 : 1;
    slot.cell = at;
    slot.isUsed = true;
    entries_[static_cast<std::size_t>(place)] = {point, owner, cluster, slot.first};
    slot.first = place;
}

void PointGrid::remove(std::span<const AcGePoint3d> points, int owner) {
    if (points.size() <= kFewPoints) {
        for (const AcGePoint3d& point : points)
            if (isFinite(point))
                removeOwner(cellOf(point), owner);
        return;
    }
    for (const Run& run : runs(points))
        removeOwner(run.first, owner);
}

void PointGrid::removeOwner(const Cell& at, int owner) {
    std::int32_t* link = &slots_[placeOf(at)].first;
    while (*link != kEnd) {
        Entry& entry = entries_[static_cast<std::size_t>(*link)];
        if (entry.owner != owner) {
            link = &entry.next;
            continue;
        }
        const std::int32_t place = *link;
        clusters_.erase(entry.cluster);
        *link = entry.next;
        entry.next = free_;
        free_ = place;
    }
}

std::array<std::int32_t, 9> PointGrid::chainsNear(const AcGePoint3d& centre, double distance) const {
    std::array<std::int32_t, 9> chains{};
    chains.fill(kEnd);
    if (!isFinite(centre))
        return chains;
    const auto indices = [&](double coordinate) {
        // Slightly more than the distance, to allow for rounding.
        const double reach = distance * (1.0 + 1e-9) + std::abs(coordinate) * 1e-15;
        Indices met;
        met.add(index(coordinate - reach));
        met.add(index(coordinate));
        met.add(index(coordinate + reach));
        return met;
    };
    const Indices columns = indices(centre.x);
    const Indices rows = indices(centre.y);
    std::size_t count = 0;
    for (int i = 0; i < columns.count; ++i)
        for (int k = 0; k < rows.count; ++k)
            chains[count++] = firstOf(
                {columns.values[static_cast<std::size_t>(i)], rows.values[static_cast<std::size_t>(k)]});
    return chains;
}

} // namespace zu
