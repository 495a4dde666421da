#include "zuhost/curve_points.h"

#include "angles.h"
#include "curve_piece.h"
#include "object_access.h"

#include <algorithm>
#include <cmath>

namespace zuhost {

namespace {

int chordsOf(const CurvePiece& piece, int chordsPerTurn) {
    const double share = std::abs(piece.end - piece.start) / kTurn;
    return piece.isArc ? std::clamp(static_cast<int>(std::ceil(share * chordsPerTurn)), 1, chordsPerTurn) : 1;
}

} // namespace

std::vector<CurvePiece> ObjectAccess::pieces(const AcDbCurve& curve) {
    return curve.pieces();
}

std::vector<AcGePoint3d> curvePoints(const AcDbCurve& curve, int chordsPerTurn) {
    std::vector<AcGePoint3d> points;
    for (const CurvePiece& piece : ObjectAccess::pieces(curve)) {
        if (!std::isfinite(piece.end - piece.start))
            return {};
        if (points.empty())
            points.push_back(piece.first());
        const int chords = chordsOf(piece, chordsPerTurn);
        for (int i = 1; i <= chords; ++i)
            points.push_back(piece.at(piece.start + (piece.end - piece.start) * i / chords));
    }
    return points;
}

} // namespace zuhost
