#pragma once

#include "../export.h"

#include <dbid.h>
#include <gepnt2d.h>

#include <span>
#include <vector>

namespace zucomn {

/// A connection point of an element, in plan.
struct ConnectionPoint {
    AcDbObjectId element;
    int number = 0; ///< Among those of the element, from 0.
    AcGePoint2d position;
};

/// Returns the connection points of the elements, in their order. Elements whose points can't be read have
/// none.
[[nodiscard]] ZUCOMN_API std::vector<ConnectionPoint>
connectionPoints(std::span<const AcDbObjectId> elements);

/// Returns for each point the other elements that have one within the connection tolerance, in the order of
/// the points and two of them at most: none where it dangles, one where it joins. Of more than two which ones
/// is left open, so that the time grows with the number of points, however close together they lie.
[[nodiscard]] ZUCOMN_API std::vector<std::vector<AcDbObjectId>>
joinedElements(std::span<const ConnectionPoint> points);

} // namespace zucomn
