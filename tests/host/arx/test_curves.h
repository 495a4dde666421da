// Curves for tests, by their points.
#pragma once

#include "sample_drawing.h"

#include <memory>
#include <numbers>
#include <vector>

inline constexpr double kPi = std::numbers::pi;
inline const AcGeVector3d kUp(0, 0, 1);
using Curve = std::unique_ptr<AcDbCurve>;

struct Vertex {
    AcGePoint2d point;
    double bulge = 0.0;
};

inline std::unique_ptr<AcDbPolyline> polyline(const std::vector<Vertex>& vertices, bool closed = false,
                                              const AcGeVector3d& normal = kUp) {
    auto made = std::make_unique<AcDbPolyline>();
    for (const Vertex& vertex : vertices)
        made->addVertexAt(made->numVerts(), vertex.point, vertex.bulge);
    made->setClosed(closed);
    made->setNormal(normal);
    return made;
}

inline Curve polyline3d(const std::vector<AcGePoint3d>& points, bool closed = false) {
    AcGePoint3dArray vertices;
    for (const AcGePoint3d& point : points)
        vertices.append(point);
    return std::make_unique<AcDb3dPolyline>(AcDb::k3dSimplePoly, vertices, closed);
}

inline double lengthOf(const AcDbCurve& curve) {
    double end = 0.0;
    double length = -1.0;
    EXPECT_EQ(curve.getEndParam(end), Acad::eOk);
    EXPECT_EQ(curve.getDistAtParam(end, length), Acad::eOk);
    return length;
}
