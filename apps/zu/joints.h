#pragma once

#include <dbid.h>
#include <gepnt2d.h>

#include <vector>

namespace zu::app {

/// A connection point of an element.
struct ConnectionPoint {
    AcDbObjectId element;
    int number = 0; ///< Among those of the element, from 0.
    AcGePoint2d position;
};

/// The connection points of the elements, in their order. Elements whose points can't be read have none.
[[nodiscard]] std::vector<ConnectionPoint> connectionPoints(const std::vector<AcDbObjectId>& elements);

/// For each point the other elements that have one within the connection tolerance, two of them at most: none
/// where it dangles, one where it joins.
[[nodiscard]] std::vector<std::vector<AcDbObjectId>>
joinedElements(const std::vector<ConnectionPoint>& points);

} // namespace zu::app
