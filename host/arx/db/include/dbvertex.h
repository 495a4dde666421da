#pragma once

#include "dbents.h"
#include "gedblar.h"

#include <zuhost/platform/export.h>

/// A vertex of a two-dimensional polyline, in the coordinates of its plane.
class ZUHOST_API AcDb2dVertex : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDb2dVertex);
    AcDb2dVertex() = default;
    explicit AcDb2dVertex(const AcGePoint3d& position, double bulge = 0.0, double startWidth = 0.0,
                          double endWidth = 0.0);

    [[nodiscard]] AcDb::Vertex2dType vertexType() const;
    [[nodiscard]] AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    [[nodiscard]] double bulge() const;
    Acad::ErrorStatus setBulge(double bulge);
    [[nodiscard]] double startWidth() const;
    Acad::ErrorStatus setStartWidth(double width);
    [[nodiscard]] double endWidth() const;
    Acad::ErrorStatus setEndWidth(double width);

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

/// A vertex of a three-dimensional polyline, in world coordinates.
class ZUHOST_API AcDb3dPolylineVertex : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDb3dPolylineVertex);
    AcDb3dPolylineVertex() = default;
    explicit AcDb3dPolylineVertex(const AcGePoint3d& position);

    [[nodiscard]] AcDb::Vertex3dType vertexType() const;
    [[nodiscard]] AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

/// Ends the vertices of a polyline or the attributes of a block reference. The database adds it.
class ZUHOST_API AcDbSequenceEnd : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbSequenceEnd);
    AcDbSequenceEnd() = default;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

/// A two-dimensional polyline whose vertices are entities of their own.
class ZUHOST_API AcDb2dPolyline : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDb2dPolyline);
    AcDb2dPolyline() = default;
    /// Widths and bulges belong to the vertices in order. Only simple polylines are modelled: other types are
    /// marked as such and keep the vertices that they are given.
    AcDb2dPolyline(AcDb::Poly2dType type, AcGePoint3dArray& vertices, double elevation = 0.0,
                   bool closed = false, double defaultStartWidth = 0.0, double defaultEndWidth = 0.0,
                   AcGeDoubleArray* bulges = nullptr, AcGeDoubleArray* vertexWidths = nullptr);

    [[nodiscard]] AcDb::Poly2dType polyType() const;
    [[nodiscard]] bool isClosed() const override;
    Acad::ErrorStatus makeClosed() { return setClosed(true); }
    Acad::ErrorStatus makeOpen() { return setClosed(false); }
    Acad::ErrorStatus setClosed(bool closed);
    [[nodiscard]] double defaultStartWidth() const;
    Acad::ErrorStatus setDefaultStartWidth(double width);
    [[nodiscard]] double defaultEndWidth() const;
    Acad::ErrorStatus setDefaultEndWidth(double width);
    [[nodiscard]] double thickness() const;
    Acad::ErrorStatus setThickness(double thickness);
    [[nodiscard]] AcGeVector3d normal() const;
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    [[nodiscard]] double elevation() const;
    Acad::ErrorStatus setElevation(double elevation);

    /// Appends the vertex, takes ownership of it and leaves it open for write. A vertex of a polyline that is
    /// in no database has no id yet; it is added to the database together with the polyline.
    Acad::ErrorStatus appendVertex(AcDb2dVertex* vertex);
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDb2dVertex* vertex);
    /// Iterates over the vertices that are not erased; the caller deletes the iterator.
    [[nodiscard]] AcDbObjectIterator* vertexIterator() const;
    Acad::ErrorStatus openVertex(AcDb2dVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false) const;
    /// The position in world coordinates.
    [[nodiscard]] AcGePoint3d vertexPosition(const AcDb2dVertex& vertex) const;

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;
    void forEachPart(const std::function<void(AcDbEntity&)>& change) override;
    void copyPartsTo(AcDbEntity& copy) const override;
    void subAppended() override;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
    /// Returns the vertices of the curve, without the frame of a spline.
    [[nodiscard]] std::vector<const AcDb2dVertex*> curveVertices() const;
    [[nodiscard]] std::vector<zuhost::CurvePiece> pieces() const override;
    [[nodiscard]] AcGeVector3d extrusion() const override { return normal(); }
    Acad::ErrorStatus reverse() override;
    Acad::ErrorStatus cut(double from, double to, std::unique_ptr<AcDbCurve>& part) const override;
    Acad::ErrorStatus offset(double distance, std::unique_ptr<AcDbCurve>& parallel) const override;

    std::vector<zuhost::PendingPtr<AcDbEntity>> verticesToCome_; ///< Of a polyline in no database.
};

/// A polyline in space whose vertices are entities of their own.
class ZUHOST_API AcDb3dPolyline : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDb3dPolyline);
    AcDb3dPolyline() = default;
    /// Only simple polylines are modelled: other types are marked as such and keep the vertices that they are
    /// given.
    AcDb3dPolyline(AcDb::Poly3dType type, AcGePoint3dArray& vertices, bool closed = false);

    [[nodiscard]] AcDb::Poly3dType polyType() const;
    [[nodiscard]] bool isClosed() const override;
    Acad::ErrorStatus makeClosed() { return setClosed(true); }
    Acad::ErrorStatus makeOpen() { return setClosed(false); }
    Acad::ErrorStatus setClosed(bool closed);

    /// As for two-dimensional polylines.
    Acad::ErrorStatus appendVertex(AcDb3dPolylineVertex* vertex);
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDb3dPolylineVertex* vertex);
    [[nodiscard]] AcDbObjectIterator* vertexIterator() const;
    Acad::ErrorStatus openVertex(AcDb3dPolylineVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false) const;

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;
    void forEachPart(const std::function<void(AcDbEntity&)>& change) override;
    void copyPartsTo(AcDbEntity& copy) const override;
    void subAppended() override;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
    [[nodiscard]] std::vector<zuhost::CurvePiece> pieces() const override;
    Acad::ErrorStatus reverse() override;
    Acad::ErrorStatus cut(double from, double to, std::unique_ptr<AcDbCurve>& part) const override;

    std::vector<zuhost::PendingPtr<AcDbEntity>> verticesToCome_; ///< Of a polyline in no database.
};
