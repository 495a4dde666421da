#pragma once

#include "connection_cache.h"
#include "point_grid.h"
#include "small_set.h"

#include <unordered_map>

namespace zu {

/// Spatial index of the connection points of a list of candidates, updated before each search.
class CandidateIndex {
public:
    CandidateIndex(ConnectionCache& cache, AcDbObjectIdArray candidates, double distance);

    /// False when the index is outdated and must be rebuilt, or was built for other distances.
    [[nodiscard]] bool isUsable(double distance) const;
    [[nodiscard]] const AcDbObjectIdArray& candidates() const { return candidates_; }

    /// Applies the changes of elements since the last call.
    void update();

    /// Sets the positions, ascending, of the candidates with a connection point within the distance that are
    /// not in `seen`, and adds them to it.
    void findNear(const AcGePoint3d& point, double distance, SmallSet<int>& seen,
                  std::vector<int>& positions) const;

private:
    void insert(int position);
    void findPositions();

    ConnectionCache& cache_;
    AcDbObjectIdArray candidates_;
    double distance_;
    std::uint64_t generation_;
    std::size_t seenChanges_;
    PointGrid grid_;
    Points distinct_;                                      ///< Those of the candidate that is inserted.
    std::unordered_multimap<AcDbObjectId, int> positions_; ///< Empty before the first change.
    std::vector<int> pending_; ///< Candidates that were open elsewhere when they were read.
};

} // namespace zu
