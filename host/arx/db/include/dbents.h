#pragma once

#include "dbmain.h"

/// A point.
class AcDbPoint : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbPoint);
    AcDbPoint();
    explicit AcDbPoint(const AcGePoint3d& position);

    [[nodiscard]] AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
};

class AcDbCurve : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbCurve);

protected:
    AcDbCurve() = default;
};

class AcDbLine : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbLine);
    AcDbLine();
    AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end);

    [[nodiscard]] AcGePoint3d startPoint() const;
    [[nodiscard]] AcGePoint3d endPoint() const;
    Acad::ErrorStatus setStartPoint(const AcGePoint3d& point);
    Acad::ErrorStatus setEndPoint(const AcGePoint3d& point);
};

class AcDbCircle : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbCircle);
    AcDbCircle();
    AcDbCircle(const AcGePoint3d& centre, double radius);

    /// In world coordinates.
    [[nodiscard]] AcGePoint3d center() const;
    [[nodiscard]] double radius() const;
    [[nodiscard]] AcGeVector3d normal() const;
    Acad::ErrorStatus setRadius(double radius);
};

class AcDbArc : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbArc);
    AcDbArc();
    /// Angles in radians, counter-clockwise.
    AcDbArc(const AcGePoint3d& centre, double radius, double startAngle, double endAngle);

    /// In world coordinates.
    [[nodiscard]] AcGePoint3d center() const;
    [[nodiscard]] double radius() const;
    /// Angles in radians, counter-clockwise about the normal.
    [[nodiscard]] double startAngle() const;
    [[nodiscard]] double endAngle() const;
    [[nodiscard]] AcGeVector3d normal() const;
};

/// A polyline of straight and arc segments in a plane.
class AcDbPolyline : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbPolyline);
    AcDbPolyline();

    [[nodiscard]] unsigned int numVerts() const;
    [[nodiscard]] bool isClosed() const;
    Acad::ErrorStatus setClosed(bool closed);
    /// Points of the polyline's plane. eInvalidIndex for a vertex that is not there.
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint2d& point) const;
    Acad::ErrorStatus getBulgeAt(unsigned int index, double& bulge) const;
    Acad::ErrorStatus addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge = 0.0);
    [[nodiscard]] AcGeVector3d normal() const;
    [[nodiscard]] double elevation() const;

private:
    /// Where the records of each vertex begin, and where those of the last one end.
    [[nodiscard]] const std::vector<std::size_t>& vertices() const;
    /// The records of one vertex: from its first coordinate to the next vertex; empty when there is none.
    [[nodiscard]] zuhost::TagRange vertexRange(unsigned int index) const;

    mutable std::vector<std::size_t> vertices_; ///< Empty before they were looked for.
    mutable std::uint32_t verticesVersion_ = 0;
};

class AcDbText : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbText);
    AcDbText();
    AcDbText(const AcGePoint3d& position, const ACHAR* text, double height);

    [[nodiscard]] std::wstring textString() const;
    Acad::ErrorStatus setTextString(const ACHAR* text);
    /// In world coordinates.
    [[nodiscard]] AcGePoint3d position() const;
    /// The point that other than left-aligned texts are aligned to, in world coordinates.
    [[nodiscard]] AcGePoint3d alignmentPoint() const;
    [[nodiscard]] double height() const;
    /// In radians.
    [[nodiscard]] double rotation() const;
    [[nodiscard]] double widthFactor() const;
    /// Group code 72 and 73 of the format.
    [[nodiscard]] int horizontalMode() const;
    [[nodiscard]] int verticalMode() const;
    [[nodiscard]] AcGeVector3d normal() const;
};

class AcDbMText : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbMText);
    AcDbMText();

    /// The text with its format codes, the pieces joined.
    [[nodiscard]] std::wstring contents() const;
    [[nodiscard]] AcGePoint3d location() const;
    [[nodiscard]] double textHeight() const;
    /// 1 to 9, by rows from the top left.
    [[nodiscard]] int attachment() const;
    /// In radians.
    [[nodiscard]] double rotation() const;
};

/// A block placed in a drawing.
class AcDbBlockReference : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockReference);
    AcDbBlockReference();
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRecord);

    /// The block's definition; null when the drawing lacks it.
    [[nodiscard]] AcDbObjectId blockTableRecord() const;
    /// Name of the definition, by value.
    [[nodiscard]] std::wstring blockName() const;
    Acad::ErrorStatus setBlockTableRecord(AcDbObjectId block);
    /// The insertion point in world coordinates.
    [[nodiscard]] AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    [[nodiscard]] AcGeScale3d scaleFactors() const;
    Acad::ErrorStatus setScaleFactors(const AcGeScale3d& factors);
    /// In radians, about the normal.
    [[nodiscard]] double rotation() const;
    Acad::ErrorStatus setRotation(double angle);
    [[nodiscard]] AcGeVector3d normal() const;
    /// From the definition's coordinates, taken from its base point, to the world: scaled, turned, put into
    /// the plane of the normal, moved to the position.
    [[nodiscard]] AcGeMatrix3d blockTransform() const;

private:
    struct Placement {
        AcGePoint3d position;
        AcGeScale3d scale;
        double rotation = 0.0;
        AcGeVector3d normal = AcGeVector3d::kZAxis;
    };
    const Placement& placement() const;

    mutable Placement placement_;
    mutable std::uint32_t placementVersion_ = ~std::uint32_t{0};
};
