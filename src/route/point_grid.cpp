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

/// std::floor without a call, for numbers that are not infinite.
double whole(double value) {
    constexpr double kLeastWhole = 4503599627370496.0; // 2^52; larger numbers have no fraction
    if (!(std::abs(value) < kLeastWhole))
        return value;
    const auto truncated = static_cast<double>(static_cast<std::int64_t>(value));
    return truncated > value ? truncated - 1.0 : truncated;
}

std::uint64_t mixed(std::uint64_t bits) {
    bits ^= bits >> 32U;
    bits *= 0x9E3779B97F4A7C15ULL;
    return bits ^ (bits >> 29U);
}

} // namespace

PointGrid::PointGrid(double greatestDistance)
    : cellsPerUnit_(1.0 / std::max(greatestDistance * kCellsPerDistance, kLeastCell)),
      slots_(kFewestSlots, kEnd) {}

double PointGrid::index(double coordinate) const {
    return whole(coordinate * cellsPerUnit_) + 0.0; // no negative zero: equal cells have equal bits
}

void PointGrid::reserve(std::size_t points) {
    entries_.reserve(points);
    grow(std::bit_ceil(points * kSlotsPerCell));
}

/// The place of the cell, or the free one where it belongs.
std::size_t PointGrid::placeOf(const Cell& cell) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t place = CellHash()(cell) & mask;
    const auto isOther = [&](std::int32_t first) {
        return first == kLeft ||
               (first != kEnd && !(cellOf(entries_[static_cast<std::size_t>(first)].point) == cell));
    };
    while (isOther(slots_[place]))
        place = (place + 1) & mask;
    return place;
}

std::int32_t PointGrid::firstOf(const Cell& cell) const {
    return slots_[placeOf(cell)];
}

/// Makes the table at least as large, and drops cells without entries.
void PointGrid::grow(std::size_t slots) {
    std::vector<std::int32_t> old(std::max({slots, slots_.size(), kFewestSlots}), kEnd);
    std::swap(old, slots_);
    usedSlots_ = 0;
    for (const std::int32_t first : old) {
        if (first < 0)
            continue;
        slots_[placeOf(cellOf(entries_[static_cast<std::size_t>(first)].point))] = first;
        ++usedSlots_;
    }
}

std::size_t PointGrid::CellHash::operator()(const Cell& cell) const noexcept {
    const std::uint64_t column = mixed(std::bit_cast<std::uint64_t>(cell.column));
    return static_cast<std::size_t>(mixed(column + std::bit_cast<std::uint64_t>(cell.row)));
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
    std::int32_t& first = slots_[placeOf(at)];
    usedSlots_ += first == kEnd ? 1 : 0;
    if (static_cast<std::size_t>(owner) >= owners_.size())
        owners_.resize(static_cast<std::size_t>(owner) + 1, kEnd);
    std::int32_t& firstOwn = owners_[static_cast<std::size_t>(owner)];
    entries_[static_cast<std::size_t>(place)] = {point, owner, cluster, first, firstOwn};
    first = place;
    firstOwn = place;
}

void PointGrid::remove(int owner) {
    if (static_cast<std::size_t>(owner) >= owners_.size())
        return;
    std::int32_t place = std::exchange(owners_[static_cast<std::size_t>(owner)], kEnd);
    while (place != kEnd) {
        Entry& entry = entries_[static_cast<std::size_t>(place)];
        unlink(place);
        clusters_.erase(entry.cluster);
        entry.next = std::exchange(free_, place);
        place = entry.nextOwn;
    }
}

/// Takes an entry out of its cell.
void PointGrid::unlink(std::int32_t place) {
    const Entry& entry = entries_[static_cast<std::size_t>(place)];
    std::int32_t& first = slots_[placeOf(cellOf(entry.point))];
    if (first == place) {
        first = entry.next == kEnd ? kLeft : entry.next;
        return;
    }
    std::int32_t* link = &first;
    while (*link != place)
        link = &entries_[static_cast<std::size_t>(*link)].next;
    *link = entry.next;
}

std::array<std::int32_t, 9> PointGrid::chainsNear(const AcGePoint3d& centre, double distance) const {
    std::array<std::int32_t, 9> chains{};
    chains.fill(kEnd);
    if (!isFinite(centre))
        return chains;
    const auto indices = [&](double coordinate) {
        // Slightly more than the distance, to allow for rounding.
        const double reach = distance * (1.0 + 1e-9) + std::abs(coordinate) * 1e-15;
        const double own = index(coordinate);
        const double within = coordinate * cellsPerUnit_ - own;
        const double margin = reach * cellsPerUnit_;
        Indices met;
        met.add(own);
        if (within > margin && 1.0 - within > margin)
            return met;
        met.add(index(coordinate - reach));
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
