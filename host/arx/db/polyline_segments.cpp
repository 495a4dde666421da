#include "dbents.h"

#include "curve_piece.h"
#include "gearc2d.h"
#include "gelnsg2d.h"

#include <vector>

using zuhost::CurvePiece;

namespace {

/// The ends of a segment, which may be the last one of a closed polyline.
template <typename Point>
struct Ends {
    Ends(const AcDbPolyline& polyline, unsigned int index) {
        polyline.getPointAt(index, from);
        polyline.getPointAt((index + 1) % polyline.numVerts(), to);
    }
    Point from;
    Point to;
};

} // namespace

AcDbPolyline::SegType AcDbPolyline::segType(unsigned int index) const {
    const unsigned int count = numVerts();
    if (index >= count)
        return kEmpty;
    if (count == 1 || (index + 1 == count && !isClosed()))
        return kPoint;
    const Ends<AcGePoint2d> ends(*this, index);
    if (ends.from == ends.to)
        return kCoincident;
    return vertexReal(index, 42) != 0.0 ? kArc : kLine;
}

Acad::ErrorStatus AcDbPolyline::getLineSegAt(unsigned int index, AcGeLineSeg2d& segment) const {
    if (segType(index) != kLine)
        return Acad::eInvalidIndex;
    const Ends<AcGePoint2d> ends(*this, index);
    segment.set(ends.from, ends.to);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getLineSegAt(unsigned int index, AcGeLineSeg3d& segment) const {
    if (segType(index) != kLine)
        return Acad::eInvalidIndex;
    const Ends<AcGePoint3d> ends(*this, index);
    segment.set(ends.from, ends.to);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getArcSegAt(unsigned int index, AcGeCircArc2d& arc) const {
    if (segType(index) != kArc)
        return Acad::eInvalidIndex;
    const Ends<AcGePoint2d> ends(*this, index);
    arc.set(ends.from, ends.to, vertexReal(index, 42));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getArcSegAt(unsigned int index, AcGeCircArc3d& arc) const {
    if (segType(index) != kArc)
        return Acad::eInvalidIndex;
    const Ends<AcGePoint3d> ends(*this, index);
    const CurvePiece piece = CurvePiece::bulged(ends.from, ends.to, normal(), vertexReal(index, 42), index);
    arc.set(piece.centre, piece.along.crossProduct(piece.across), piece.along, piece.along.length(),
            piece.start, piece.end);
    return Acad::eOk;
}
std::vector<CurvePiece> AcDbPolyline::pieces() const {
    const unsigned int count = numVerts();
    const AcGeMatrix3d toWorld = planeToWorld();
    const AcGeVector3d up = normal();
    const double height = elevation();
    const auto at = [&](unsigned int index) {
        return toWorld * AcGePoint3d(vertexReal(index, 10), vertexReal(index, 20), height);
    };
    std::vector<CurvePiece> pieces;
    const unsigned int segments = count == 0 || isClosed() ? count : count - 1;
    for (unsigned int i = 0; i < segments; ++i)
        pieces.push_back(CurvePiece::bulged(at(i), at((i + 1) % count), up, vertexReal(i, 42), i));
    return pieces;
}

Acad::ErrorStatus AcDbPolyline::subExplode(AcDbVoidPtrArray& entities) const {
    const AcGeVector3d up = normal();
    const double thick = thickness();
    const auto add = [&](auto* part) {
        part->setPropertiesFrom(this);
        part->setThickness(thick);
        entities.append(part);
    };
    const AcGeVector3d x = AcGeMatrix3d::planeToWorld(up) * AcGeVector3d::kXAxis;
    for (const CurvePiece& piece : pieces()) {
        if (piece.isArc) {
            const bool isClockwise = piece.along.crossProduct(piece.across).dotProduct(up) < 0.0;
            const AcGePoint3d from = isClockwise ? piece.last() : piece.first();
            const AcGePoint3d to = isClockwise ? piece.first() : piece.last();
            add(new AcDbArc(piece.centre, up, piece.along.length(), x.angleTo(from - piece.centre, up),
                            x.angleTo(to - piece.centre, up)));
        } else {
            auto* const line = new AcDbLine(piece.first(), piece.last());
            line->setNormal(up);
            add(line);
        }
    }
    return Acad::eOk;
}
