#include "model/audit/audit.h"
#include "report/output.h"

#include <zucomn/model/joints.h>

namespace zu::app {

namespace {

std::string placeText(const zucomn::ConnectionPoint& point) {
    return "connection point " + std::to_string(point.number) + " at " + shortNumber(point.position.x) +
           ", " + shortNumber(point.position.y);
}

} // namespace

void auditConnectionPoints(const DrawingFile& drawing, Audit& audit) {
    const std::vector<zucomn::ConnectionPoint> points = zucomn::connectionPoints(drawing.references());
    const std::vector<std::vector<AcDbObjectId>> joined = zucomn::joinedElements(points);
    for (std::size_t i = 0; i < points.size(); ++i) {
        const std::vector<AcDbObjectId>& others = joined[i];
        if (others.empty())
            audit.add(points[i].element, placeText(points[i]) + " joins nothing");
        else if (others.size() > 1)
            audit.add(points[i].element, placeText(points[i]) + " joins several elements: " +
                                             handleText(others[0]) + ", " + handleText(others[1]));
    }
}

} // namespace zu::app
