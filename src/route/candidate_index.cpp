#include "candidate_index.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace zu {

namespace {

/// A point with a coordinate that is NaN hides the later ones: none of them compares as nearer.
bool isMeasurable(const AcGePoint3d& point) {
    return !std::isnan(point.x) && !std::isnan(point.y);
}

/// Leaves the element's points for the grid, without repeated ones: a block may have many at one place.
void makeDistinctFinite(Points& points) {
    std::erase_if(points, [](const AcGePoint3d& p) { return !std::isfinite(p.x) || !std::isfinite(p.y); });
    std::sort(points.begin(), points.end(), [](const AcGePoint3d& a, const AcGePoint3d& b) {
        return std::tie(a.x, a.y) < std::tie(b.x, b.y);
    });
    const auto isSame = [](const AcGePoint3d& a, const AcGePoint3d& b) { return a.x == b.x && a.y == b.y; };
    points.erase(std::unique(points.begin(), points.end(), isSame), points.end());
}

} // namespace

CandidateIndex::CandidateIndex(ConnectionCache& cache, AcDbObjectIdArray candidates, double distance)
    : cache_(cache), candidates_(std::move(candidates)), distance_(distance), generation_(cache.generation()),
      seenChanges_(cache.changedElements().size()), grid_(distance) {
    grid_.reserve(static_cast<std::size_t>(candidates_.length()));
    for (int position = 0; position < candidates_.length(); ++position)
        insert(position);
}

bool CandidateIndex::isUsable(double distance) const {
    return generation_ == cache_.generation() && distance <= distance_ && distance * 64.0 >= distance_;
}

void CandidateIndex::insert(int position) {
    if (!cache_.covers(candidates_[position]))
        return;
    const CachedElement& element = cache_.element(candidates_[position]);
    if (isTemporary(element.status)) {
        pending_.push_back(position);
        return;
    }
    const std::span<const AcGePoint3d> points = cache_.points(element);
    if (points.empty() || !isMeasurable(points.front()))
        return;
    distinct_.assign(points.begin(), points.end());
    makeDistinctFinite(distinct_);
    grid_.add(distinct_, position);
}

void CandidateIndex::findPositions() {
    if (!positions_.empty())
        return;
    positions_.reserve(static_cast<std::size_t>(candidates_.length()));
    for (int position = 0; position < candidates_.length(); ++position)
        positions_.emplace(candidates_[position], position);
}

void CandidateIndex::update() {
    std::vector<int> again;
    std::swap(again, pending_);
    const std::vector<AcDbObjectId>& changes = cache_.changedElements();
    if (seenChanges_ < changes.size())
        findPositions();
    for (; seenChanges_ < changes.size(); ++seenChanges_) {
        const auto [first, last] = positions_.equal_range(changes[seenChanges_]);
        std::for_each(first, last, [&](const auto& entry) { again.push_back(entry.second); });
    }
    for (const int position : again) {
        grid_.remove(position);
        insert(position);
    }
}

void CandidateIndex::findNear(const AcGePoint3d& point, double distance, SmallSet<int>& seen,
                              std::vector<int>& positions) const {
    positions.clear();
    const auto isSeen = [&seen](int position) { return seen.contains(position); };
    grid_.visit(point, distance, isSeen, [&](int position) {
        seen.insert(position);
        positions.push_back(position);
        return true;
    });
    std::sort(positions.begin(), positions.end());
}

} // namespace zu
