#include "curve_piece.h"
#include "dbcurve.h"
#include "expansion.h"
#include "geplane.h"

#include <algorithm>
#include <cmath>

Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d& matrix) {
    const auto isFinite = [](double value) { return std::isfinite(value); };
    if (!std::all_of(&matrix.entry[0][0], &matrix.entry[0][0] + 16, isFinite))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    return status == Acad::eOk ? subTransformBy(matrix) : status;
}

Acad::ErrorStatus AcDbEntity::getTransformedCopy(const AcGeMatrix3d& matrix, AcDbEntity*& copy) const {
    copy = nullptr;
    std::unique_ptr<AcRxObject> cloned(clone());
    auto* const entity = AcDbEntity::cast(cloned.get());
    if (entity == nullptr)
        return Acad::eNotImplementedYet;
    const Acad::ErrorStatus status = entity->transformBy(matrix);
    if (status != Acad::eOk)
        return status;
    copy = entity;
    static_cast<void>(cloned.release());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::getGeomExtents(AcDbExtents& extents) const {
    return subGetGeomExtents(extents);
}

Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity* other, AcDb::Intersect type,
                                            AcGePoint3dArray& points, Adesk::GsMarker /*thisMarker*/,
                                            Adesk::GsMarker /*otherMarker*/) const {
    return intersectUnder(AcGeMatrix3d::kIdentity, other, type, points);
}

Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity* other, AcDb::Intersect type,
                                            const AcGePlane& plane, AcGePoint3dArray& points,
                                            Adesk::GsMarker /*thisMarker*/,
                                            Adesk::GsMarker /*otherMarker*/) const {
    return intersectUnder(AcGeMatrix3d::projection(plane, plane.normal()), other, type, points);
}

Acad::ErrorStatus AcDbEntity::intersectUnder(const AcGeMatrix3d& matrix, const AcDbEntity* other,
                                             AcDb::Intersect type, AcGePoint3dArray& points) const {
    if (other == nullptr)
        return Acad::eNullObjectPointer;
    const AcDbCurve* const curves[] = {AcDbCurve::cast(this), AcDbCurve::cast(other)};
    if (curves[0] == nullptr || curves[1] == nullptr)
        return Acad::eNotImplementedYet;
    zuhost::CurvePieces pieces[2];
    for (int i = 0; i < 2; ++i)
        for (const zuhost::CurvePiece& piece : curves[i]->pieces())
            pieces[i].push_back(piece.transformed(matrix));
    const bool extendsThis =
        (type == AcDb::kExtendThis || type == AcDb::kExtendBoth) && pieces[0].size() == 1;
    const bool extendsOther =
        (type == AcDb::kExtendArg || type == AcDb::kExtendBoth) && pieces[1].size() == 1;
    std::vector<AcGePoint3d> found;
    if (!zuhost::intersect(pieces[0], extendsThis, pieces[1], extendsOther, found))
        return Acad::eNotImplementedYet;
    for (const AcGePoint3d& point : found)
        points.append(point);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::explode(AcDbVoidPtrArray& entities) const {
    return subExplode(entities);
}

Acad::ErrorStatus AcDbEntity::subTransformBy(const AcGeMatrix3d& /*matrix*/) {
    return Acad::eNotImplementedYet;
}

Acad::ErrorStatus AcDbEntity::subGetGeomExtents(AcDbExtents& extents) const {
    zuhost::Expansion expansion;
    return extentsUnder(AcGeMatrix3d::kIdentity, expansion, extents);
}

Acad::ErrorStatus AcDbEntity::subExplode(AcDbVoidPtrArray& /*entities*/) const {
    return Acad::eNotImplementedYet;
}

Acad::ErrorStatus AcDbEntity::extentsUnder(const AcGeMatrix3d& /*matrix*/, zuhost::Expansion& /*expansion*/,
                                           AcDbExtents& /*extents*/) const {
    return Acad::eNotImplementedYet;
}
