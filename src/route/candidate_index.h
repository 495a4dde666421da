#pragma once

#include "connection_cache.h"
#include "point_grid.h"

#include <unordered_set>

namespace zu {

/// The connection points of a list of candidates by place, brought up to date before each search.
class CandidateIndex {
public:
    CandidateIndex(ConnectionCache& cache, AcDbObjectIdArray candidates, double distance);

    /// False when the index no longer describes the drawing and must be built anew, or is meant for other
    /// distances.
    [[nodiscard]] bool isUsable(double distance) const;
    [[nodiscard]] const AcDbObjectIdArray& candidates() const { return candidates_; }

    /// Follows the changes of elements since the last call.
    void update();

    /// The positions, ascending, of the candidates with a connection point within the distance that were not
    /// seen before; they are seen then.
    [[nodiscard]] std::vector<int> near(const AcGePoint3d& point, double distance,
                                        std::unordered_set<int>& seen) const;

private:
    struct Placed {
        Points points; ///< Those in the grid.
        bool isSettled = true;
    };

    void place(int position);
    void takeOut(int position);

    ConnectionCache& cache_;
    AcDbObjectIdArray candidates_;
    double distance_;
    std::uint64_t generation_;
    std::size_t seenChanges_;
    PointGrid grid_;
    std::vector<Placed> placed_;
    std::unordered_multimap<AcDbObjectId, int> positions_;
    std::vector<int> unsettled_; ///< Candidates that could not be read for the moment.
};

} // namespace zu
