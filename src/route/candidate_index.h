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

    /// Returns the positions, ascending, of the candidates with a connection point within the distance that
    /// are not in `seen`, and adds them to it.
    [[nodiscard]] std::vector<int> near(const AcGePoint3d& point, double distance, SmallSet<int>& seen) const;

private:
    struct Placed {
        Points points; ///< Those in the grid.
        bool isPending = false;
    };

    void insert(int position);
    void remove(int position);

    ConnectionCache& cache_;
    AcDbObjectIdArray candidates_;
    double distance_;
    std::uint64_t generation_;
    std::size_t seenChanges_;
    PointGrid grid_;
    std::vector<Placed> placed_;
    std::unordered_multimap<AcDbObjectId, int> positions_;
    std::vector<int> pending_; ///< Candidates that were open elsewhere when they were read.
};

} // namespace zu
