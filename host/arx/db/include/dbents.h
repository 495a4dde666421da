#pragma once

#include "dbmain.h"

class AcDbPoint : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbPoint);
    AcDbPoint() = default;
    explicit AcDbPoint(const AcGePoint3d& position);

    [[nodiscard]] AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
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
    AcDbLine() = default;
    AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end);

    [[nodiscard]] AcGePoint3d startPoint() const;
    [[nodiscard]] AcGePoint3d endPoint() const;
    Acad::ErrorStatus setStartPoint(const AcGePoint3d& point);
    Acad::ErrorStatus setEndPoint(const AcGePoint3d& point);

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

class AcDbCircle : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbCircle);
    AcDbCircle() = default;
    AcDbCircle(const AcGePoint3d& centre, double radius);

    /// In world coordinates.
    [[nodiscard]] AcGePoint3d center() const;
    [[nodiscard]] double radius() const;
    [[nodiscard]] AcGeVector3d normal() const;
    Acad::ErrorStatus setRadius(double radius);

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

class AcDbArc : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbArc);
    AcDbArc() = default;
    /// Angles in radians, counter-clockwise.
    AcDbArc(const AcGePoint3d& centre, double radius, double startAngle, double endAngle);

    /// In world coordinates.
    [[nodiscard]] AcGePoint3d center() const;
    [[nodiscard]] double radius() const;
    /// Angles in radians, counter-clockwise about the normal.
    [[nodiscard]] double startAngle() const;
    [[nodiscard]] double endAngle() const;
    [[nodiscard]] AcGeVector3d normal() const;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

/// A polyline of straight and arc segments in a plane.
class AcDbPolyline : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbPolyline);
    AcDbPolyline() = default;

    [[nodiscard]] unsigned int numVerts() const;
    [[nodiscard]] bool isClosed() const;
    Acad::ErrorStatus setClosed(bool closed);
    /// In the coordinates of the polyline's plane. eInvalidIndex when there is no such vertex.
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint2d& point) const;
    Acad::ErrorStatus getBulgeAt(unsigned int index, double& bulge) const;
    Acad::ErrorStatus addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge = 0.0);
    [[nodiscard]] AcGeVector3d normal() const;
    [[nodiscard]] double elevation() const;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
    /// Returns the index of each vertex's first record, then the end of the last vertex's records.
    [[nodiscard]] const std::vector<std::size_t>& vertices() const;
    /// Returns the range of a vertex's records, up to the next vertex; empty when there is no such vertex.
    [[nodiscard]] zuhost::TagRange vertexRange(unsigned int index) const;

    mutable std::vector<std::size_t> vertices_; ///< Empty until first used.
    mutable std::uint32_t verticesVersion_ = 0;
};

class AcDbText : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbText);
    AcDbText() = default;
    AcDbText(const AcGePoint3d& position, const ACHAR* text, double height);

    [[nodiscard]] std::wstring textString() const;
    Acad::ErrorStatus setTextString(const ACHAR* text);
    /// In world coordinates.
    [[nodiscard]] AcGePoint3d position() const;
    /// The alignment point of texts that are not left-aligned, in world coordinates; position() when missing.
    [[nodiscard]] AcGePoint3d alignmentPoint() const;
    [[nodiscard]] double height() const;
    /// In radians.
    [[nodiscard]] double rotation() const;
    [[nodiscard]] double widthFactor() const;
    /// The values of group codes 72 and 73.
    [[nodiscard]] int horizontalMode() const;
    [[nodiscard]] int verticalMode() const;
    [[nodiscard]] AcGeVector3d normal() const;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

class AcDbMText : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbMText);
    AcDbMText() = default;

    /// Returns the text with its formatting codes, all parts joined.
    [[nodiscard]] std::wstring contents() const;
    [[nodiscard]] AcGePoint3d location() const;
    [[nodiscard]] double textHeight() const;
    /// 1 to 9, row by row from the top left.
    [[nodiscard]] int attachment() const;
    /// In radians.
    [[nodiscard]] double rotation() const;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

/// An insertion of a block.
class AcDbBlockReference : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockReference);
    AcDbBlockReference() = default;
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRecord);

    /// Returns the block's definition; null when the drawing lacks it.
    [[nodiscard]] AcDbObjectId blockTableRecord() const;
    /// Returns the name of the definition, even if the drawing lacks it.
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
    /// Maps the definition's coordinates, relative to its base point, to the world: scales, rotates,
    /// transforms from the plane of the normal, moves to the position.
    [[nodiscard]] AcGeMatrix3d blockTransform() const;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
    struct Placement {
        AcGePoint3d position;
        AcGeScale3d scale;
        double rotation = 0.0;
        AcGeVector3d normal = AcGeVector3d::kZAxis;
    };
    /// Returns the class marker: references repeated in rows and columns have a different one.
    [[nodiscard]] std::string_view marker() const;
    /// Returns the records of that class.
    [[nodiscard]] zuhost::TagView ownSection() const;
    [[nodiscard]] Placement placement() const;
};
