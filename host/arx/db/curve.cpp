#include "dbcurve.h"

#include "curve_piece.h"
#include "geplane.h"

#include <cmath>

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbCurve, AcDbEntity)

using zuhost::CurvePiece;
using zuhost::CurvePieces;

namespace {

/// How far points may be from a curve that they are said to be on.
constexpr double kOnCurve = 1e-6;

/// Returns the piece with the parameter; null when it is not on the curve.
const CurvePiece* pieceAt(const CurvePieces& pieces, double param) {
    const double slack = 1e-9 * std::max(1.0, std::abs(param));
    for (const CurvePiece& piece : pieces)
        if (param >= piece.firstParam - slack && param <= piece.lastParam + slack)
            return &piece;
    return nullptr;
}

struct Nearest {
    const CurvePiece* piece = nullptr;
    double t = 0.0;
    AcGePoint3d point;
    double distance = 0.0;
};

Nearest nearestOf(const CurvePieces& pieces, const AcGePoint3d& point, bool extended = false) {
    Nearest best;
    for (const CurvePiece& piece : pieces) {
        const double t = piece.closest(point, extended);
        const AcGePoint3d found = piece.at(t);
        const double distance = found.distanceTo(point);
        if (best.piece == nullptr || distance < best.distance)
            best = {&piece, t, found, distance};
    }
    return best;
}

} // namespace

bool AcDbCurve::isClosed() const {
    const CurvePieces all = pieces();
    return !all.empty() && all.front().first().isEqualTo(all.back().last());
}

Acad::ErrorStatus AcDbCurve::getStartParam(double& param) const {
    const CurvePieces all = pieces();
    if (all.empty())
        return Acad::eDegenerateGeometry;
    param = all.front().firstParam;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getEndParam(double& param) const {
    const CurvePieces all = pieces();
    if (all.empty())
        return Acad::eDegenerateGeometry;
    param = all.back().lastParam;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getStartPoint(AcGePoint3d& point) const {
    const CurvePieces all = pieces();
    if (all.empty())
        return Acad::eDegenerateGeometry;
    point = all.front().first();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getEndPoint(AcGePoint3d& point) const {
    const CurvePieces all = pieces();
    if (all.empty())
        return Acad::eDegenerateGeometry;
    point = all.back().last();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getPointAtParam(double param, AcGePoint3d& point) const {
    const CurvePieces all = pieces();
    const CurvePiece* const piece = pieceAt(all, param);
    if (piece == nullptr)
        return all.empty() ? Acad::eDegenerateGeometry : Acad::eInvalidInput;
    point = piece->at(piece->fromParam(param));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getParamAtPoint(const AcGePoint3d& point, double& param) const {
    const CurvePieces all = pieces();
    const Nearest nearest = nearestOf(all, point);
    if (nearest.piece == nullptr)
        return Acad::eDegenerateGeometry;
    if (!(nearest.distance <= kOnCurve))
        return Acad::eInvalidInput;
    param = nearest.piece->toParam(nearest.t);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getDistAtParam(double param, double& distance) const {
    const CurvePieces all = pieces();
    const CurvePiece* const piece = pieceAt(all, param);
    if (piece == nullptr)
        return all.empty() ? Acad::eDegenerateGeometry : Acad::eInvalidInput;
    double before = 0.0;
    for (const CurvePiece* p = all.data(); p != piece; ++p)
        before += p->length();
    distance = before + piece->lengthTo(piece->fromParam(param));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getParamAtDist(double distance, double& param) const {
    const CurvePieces all = pieces();
    if (all.empty())
        return Acad::eDegenerateGeometry;
    double rest = distance;
    for (const CurvePiece& piece : all) {
        const double length = piece.length();
        // The sum of the lengths may be rounded: the last piece has what is left.
        const double slack = &piece == &all.back() ? 1e-9 * std::max(1.0, distance) : 0.0;
        if (rest >= 0.0 && rest <= length + slack) {
            param = piece.toParam(piece.atLength(std::min(rest, length)));
            return Acad::eOk;
        }
        rest -= length;
    }
    return Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbCurve::getDistAtPoint(const AcGePoint3d& point, double& distance) const {
    double param = 0.0;
    const Acad::ErrorStatus status = getParamAtPoint(point, param);
    return status == Acad::eOk ? getDistAtParam(param, distance) : status;
}

Acad::ErrorStatus AcDbCurve::getPointAtDist(double distance, AcGePoint3d& point) const {
    double param = 0.0;
    const Acad::ErrorStatus status = getParamAtDist(distance, param);
    return status == Acad::eOk ? getPointAtParam(param, point) : status;
}

Acad::ErrorStatus AcDbCurve::getFirstDeriv(double param, AcGeVector3d& derivative) const {
    const CurvePieces all = pieces();
    const CurvePiece* const piece = pieceAt(all, param);
    if (piece == nullptr)
        return all.empty() ? Acad::eDegenerateGeometry : Acad::eInvalidInput;
    if (piece->lastParam == piece->firstParam)
        return Acad::eDegenerateGeometry; // a line without length has no direction
    const double stretch = (piece->end - piece->start) / (piece->lastParam - piece->firstParam);
    derivative = piece->derivative(piece->fromParam(param)) * stretch;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getFirstDeriv(const AcGePoint3d& point, AcGeVector3d& derivative) const {
    double param = 0.0;
    const Acad::ErrorStatus status = getParamAtPoint(point, param);
    return status == Acad::eOk ? getFirstDeriv(param, derivative) : status;
}

Acad::ErrorStatus AcDbCurve::getSecondDeriv(double param, AcGeVector3d& derivative) const {
    const CurvePieces all = pieces();
    const CurvePiece* const piece = pieceAt(all, param);
    if (piece == nullptr)
        return all.empty() ? Acad::eDegenerateGeometry : Acad::eInvalidInput;
    if (piece->lastParam == piece->firstParam)
        return Acad::eDegenerateGeometry;
    const double stretch = (piece->end - piece->start) / (piece->lastParam - piece->firstParam);
    const AcGePoint3d at = piece->at(piece->fromParam(param));
    derivative = piece->isArc ? (piece->centre - at) * (stretch * stretch) : AcGeVector3d();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getSecondDeriv(const AcGePoint3d& point, AcGeVector3d& derivative) const {
    double param = 0.0;
    const Acad::ErrorStatus status = getParamAtPoint(point, param);
    return status == Acad::eOk ? getSecondDeriv(param, derivative) : status;
}

Acad::ErrorStatus AcDbCurve::getClosestPointTo(const AcGePoint3d& point, const AcGeVector3d& normal,
                                               AcGePoint3d& onCurve, bool extend) const {
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    AcGeMatrix3d flat;
    flat.setToProjection(AcGePlane(point, normal), normal);
    const CurvePieces all = pieces();
    CurvePieces projected;
    for (const CurvePiece& piece : all)
        projected.push_back(piece.transformed(flat));
    const Nearest nearest = nearestOf(projected, point, extend && all.size() == 1);
    if (nearest.piece == nullptr)
        return Acad::eDegenerateGeometry;
    onCurve = all[static_cast<std::size_t>(nearest.piece - projected.data())].at(nearest.t);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getClosestPointTo(const AcGePoint3d& point, AcGePoint3d& onCurve,
                                               bool extend) const {
    const CurvePieces all = pieces();
    const Nearest nearest = nearestOf(all, point, extend && all.size() == 1);
    if (nearest.piece == nullptr)
        return Acad::eDegenerateGeometry;
    onCurve = nearest.point;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getArea(double& area) const {
    const CurvePieces all = pieces();
    if (all.empty() || (all.size() == 1 && !all.front().isArc))
        return Acad::eNotApplicable;
    const AcGePoint3d origin = all.front().first();
    AcGeVector3d sum;
    for (const CurvePiece& piece : all)
        sum += piece.areaAbout(origin);
    const AcGeVector3d normal = sum.normal();
    for (const CurvePiece& piece : all)
        for (const double t : {piece.start, (piece.start + piece.end) / 2.0})
            if (std::abs((piece.at(t) - origin).dotProduct(normal)) > kOnCurve)
                return Acad::eNotApplicable;
    area = sum.length();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getAcGeCurve(AcGeCurve3d*& curve, const AcGeTol& /*tol*/) const {
    curve = nullptr;
    const CurvePieces all = pieces();
    if (all.size() == 1)
        curve = all.front().geometry().release();
    return curve != nullptr ? Acad::eOk : Acad::eNotImplementedYet;
}

Acad::ErrorStatus AcDbCurve::extentsUnder(const AcGeMatrix3d& matrix, zuhost::Expansion& /*expansion*/,
                                          AcDbExtents& extents) const {
    const CurvePieces all = pieces();
    AcDbExtents box;
    for (const CurvePiece& piece : all)
        piece.transformed(matrix).addTo(box);
    if (all.empty())
        return Acad::eInvalidExtents;
    extents = box;
    return Acad::eOk;
}
