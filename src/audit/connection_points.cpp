#include "findings.h"

#include <zucomn/model/elements.h>
#include <zucomn/model/joints.h>

#include <afxstr.h>

#include <cmath>

namespace zu {

namespace {

using zucomn::RouteFault;

constexpr double kSteps = 1000.0; ///< In one drawing unit.

CString handleText(AcDbObjectId id) {
    ACHAR buffer[17];
    id.handle().getIntoAsciiBuffer(buffer);
    return buffer;
}

/// Adding 0.0 turns a negative zero, which would be written "-0", into a positive one.
double rounded(double value) {
    return std::round(value * kSteps) / kSteps + 0.0;
}

std::wstring problemText(const zucomn::ConnectionPoint& point, const std::vector<AcDbObjectId>& others) {
    CString text;
    text.Format(L"connection point %d at %.15g, %.15g joins ", point.number, rounded(point.position.x),
                rounded(point.position.y));
    if (others.empty())
        text += L"nothing";
    else
        text += L"several elements: " + handleText(others[0]) + L", " + handleText(others[1]);
    return std::wstring(text.view());
}

} // namespace

void auditConnectionPoints(const AcDbDatabase& drawing, RouteAudit& audit) {
    const std::vector<zucomn::ConnectionPoint> points =
        zucomn::connectionPoints(zucomn::modelSpaceReferences(drawing));
    std::vector<std::vector<AcDbObjectId>> joined = zucomn::joinedElements(points);
    for (std::size_t i = 0; i < points.size(); ++i)
        if (joined[i].size() != 1)
            audit.add({points[i].element, joined[i].empty() ? RouteFault::openEnd : RouteFault::crowdedJoint,
                       problemText(points[i], joined[i]), false, std::move(joined[i]),
                       AcGePoint3d(points[i].position.x, points[i].position.y, 0.0)});
}

} // namespace zu
