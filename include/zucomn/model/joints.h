#pragma once

#include "../export.h"

#include <dbid.h>
#include <gepnt2d.h>

#include <cstddef>
#include <span>
#include <vector>

namespace zucomn {

/// A connection point of an element, in plan.
struct ConnectionPoint {
    AcDbObjectId element;
    int number = 0; ///< Number among the points of the element, from 0.
    AcGePoint2d position;
};

/// Returns the connection points of the elements in order. Elements whose points cannot be read are skipped.
[[nodiscard]] ZUCOMN_API std::vector<ConnectionPoint>
connectionPoints(std::span<const AcDbObjectId> elements);

/// Returns for each point, in order, up to `most` other elements with a connection point within the
/// connection tolerance: none for a dangling point, one for a joint. Of more elements, it is unspecified
/// which are returned, so that the time grows with the number of points only, however close together they
/// lie.
[[nodiscard]] ZUCOMN_API std::vector<std::vector<AcDbObjectId>>
joinedElements(std::span<const ConnectionPoint> points, std::size_t most = 2);

/// Returns for each point, in order, whether another element has a connection point within the connection
/// tolerance. Of many points, halves of the plane are searched at the same time, in threads of this call.
[[nodiscard]] ZUCOMN_API std::vector<bool> joinedPoints(std::span<const ConnectionPoint> points);

} // namespace zucomn
