#pragma once

#include "dbcurve.h"

#include <zuhost/platform/export.h>

class AcDbAttribute;
class AcDbBlockTableRecord;
class AcDbEllipse;
class AcDbObjectIterator;
class AcGeCircArc2d;
class AcGeCircArc3d;
class AcGeLineSeg2d;
class AcGeLineSeg3d;

class ZUHOST_API AcDbPoint : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbPoint);
    AcDbPoint() = default;
    explicit AcDbPoint(const AcGePoint3d& position);

    [[nodiscard]] AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    [[nodiscard]] AcGeVector3d normal() const;
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    [[nodiscard]] double thickness() const;
    Acad::ErrorStatus setThickness(double thickness);
    /// The rotation of the symbol in radians.
    [[nodiscard]] double ecsRotation() const;
    Acad::ErrorStatus setEcsRotation(double angle);

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;
    Acad::ErrorStatus extentsUnder(const AcGeMatrix3d& matrix, zuhost::Expansion& expansion,
                                   AcDbExtents& extents) const override;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

class ZUHOST_API AcDbLine : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbLine);
    AcDbLine() = default;
    AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end);

    [[nodiscard]] AcGePoint3d startPoint() const;
    [[nodiscard]] AcGePoint3d endPoint() const;
    Acad::ErrorStatus setStartPoint(const AcGePoint3d& point);
    Acad::ErrorStatus setEndPoint(const AcGePoint3d& point);
    [[nodiscard]] AcGeVector3d normal() const;
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    [[nodiscard]] double thickness() const;
    Acad::ErrorStatus setThickness(double thickness);

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
    [[nodiscard]] std::vector<zuhost::CurvePiece> pieces() const override;
    [[nodiscard]] AcGeVector3d extrusion() const override { return normal(); }
    Acad::ErrorStatus reverse() override;
    Acad::ErrorStatus cut(double from, double to, std::unique_ptr<AcDbCurve>& part) const override;
    Acad::ErrorStatus offset(double distance, std::unique_ptr<AcDbCurve>& parallel) const override;
};

class ZUHOST_API AcDbCircle : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbCircle);
    AcDbCircle() = default;
    AcDbCircle(const AcGePoint3d& centre, const AcGeVector3d& normal, double radius);

    /// In world coordinates.
    [[nodiscard]] AcGePoint3d center() const;
    Acad::ErrorStatus setCenter(const AcGePoint3d& centre);
    [[nodiscard]] double radius() const;
    /// eInvalidInput for a negative radius.
    Acad::ErrorStatus setRadius(double radius);
    [[nodiscard]] AcGeVector3d normal() const;
    /// The centre stays where it is. eInvalidInput for a vector without length.
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    [[nodiscard]] double thickness() const;
    Acad::ErrorStatus setThickness(double thickness);
    [[nodiscard]] bool isPeriodic() const override { return true; }

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
    [[nodiscard]] std::vector<zuhost::CurvePiece> pieces() const override;
    [[nodiscard]] AcGeVector3d extrusion() const override { return normal(); }
    Acad::ErrorStatus cut(double from, double to, std::unique_ptr<AcDbCurve>& part) const override;
    Acad::ErrorStatus offset(double distance, std::unique_ptr<AcDbCurve>& parallel) const override;
};

class ZUHOST_API AcDbArc : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbArc);
    AcDbArc() = default;
    /// Angles in radians, counter-clockwise.
    AcDbArc(const AcGePoint3d& centre, double radius, double startAngle, double endAngle);
    AcDbArc(const AcGePoint3d& centre, const AcGeVector3d& normal, double radius, double startAngle,
            double endAngle);

    /// In world coordinates.
    [[nodiscard]] AcGePoint3d center() const;
    Acad::ErrorStatus setCenter(const AcGePoint3d& centre);
    [[nodiscard]] double radius() const;
    /// eInvalidInput for a negative radius.
    Acad::ErrorStatus setRadius(double radius);
    /// Angles in radians, counter-clockwise about the normal, from the x axis of its plane.
    [[nodiscard]] double startAngle() const;
    Acad::ErrorStatus setStartAngle(double angle);
    [[nodiscard]] double endAngle() const;
    Acad::ErrorStatus setEndAngle(double angle);
    /// The angle from the start to the end.
    [[nodiscard]] double totalAngle() const;
    [[nodiscard]] AcGeVector3d normal() const;
    /// The centre stays where it is. eInvalidInput for a vector without length.
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    [[nodiscard]] double thickness() const;
    Acad::ErrorStatus setThickness(double thickness);

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
    [[nodiscard]] std::vector<zuhost::CurvePiece> pieces() const override;
    [[nodiscard]] AcGeVector3d extrusion() const override { return normal(); }
    Acad::ErrorStatus cut(double from, double to, std::unique_ptr<AcDbCurve>& part) const override;
    Acad::ErrorStatus offset(double distance, std::unique_ptr<AcDbCurve>& parallel) const override;
};

/// A polyline of straight and arc segments in a plane.
class ZUHOST_API AcDbPolyline : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbPolyline);
    AcDbPolyline() = default;
    explicit AcDbPolyline(unsigned int vertices) : AcDbPolyline() { maximizeMemory(vertices); }

    enum SegType { kLine, kArc, kCoincident, kPoint, kEmpty };

    [[nodiscard]] unsigned int numVerts() const;
    [[nodiscard]] bool isClosed() const override;
    Acad::ErrorStatus setClosed(bool closed);

    // ---- vertices, in the coordinates of the polyline's plane; eInvalidIndex when there is no such vertex
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint2d& point) const;
    /// In world coordinates.
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint3d& point) const;
    Acad::ErrorStatus setPointAt(unsigned int index, const AcGePoint2d& point);
    /// The tangent of a quarter of the arc's angle, positive counter-clockwise; 0 for a straight segment.
    Acad::ErrorStatus getBulgeAt(unsigned int index, double& bulge) const;
    Acad::ErrorStatus setBulgeAt(unsigned int index, double bulge);
    Acad::ErrorStatus getWidthsAt(unsigned int index, double& start, double& end) const;
    Acad::ErrorStatus setWidthsAt(unsigned int index, double start, double end);
    /// Widths below 0 are those of the whole polyline. The identifier is not modelled.
    Acad::ErrorStatus addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge = 0.0,
                                  double startWidth = -1.0, double endWidth = -1.0,
                                  Adesk::Int32 identifier = 0);
    /// eDegenerateGeometry for a polyline of two vertices.
    Acad::ErrorStatus removeVertexAt(unsigned int index);
    /// Removes the vertices, or with `reuse` those after the first `count`.
    Acad::ErrorStatus reset(bool reuse, unsigned int count);

    // ---- segments, each from its vertex to the next
    [[nodiscard]] SegType segType(unsigned int index) const;
    /// eInvalidIndex for a segment of another type.
    Acad::ErrorStatus getLineSegAt(unsigned int index, AcGeLineSeg2d& segment) const;
    Acad::ErrorStatus getLineSegAt(unsigned int index, AcGeLineSeg3d& segment) const;
    Acad::ErrorStatus getArcSegAt(unsigned int index, AcGeCircArc2d& arc) const;
    Acad::ErrorStatus getArcSegAt(unsigned int index, AcGeCircArc3d& arc) const;
    [[nodiscard]] bool isOnlyLines() const { return !hasBulges(); }
    [[nodiscard]] bool hasBulges() const;
    [[nodiscard]] bool hasWidth() const;

    // ---- the whole
    /// eInvalidInput when the widths differ.
    Acad::ErrorStatus getConstantWidth(double& width) const;
    Acad::ErrorStatus setConstantWidth(double width);
    [[nodiscard]] AcGeVector3d normal() const;
    /// Vertices keep their coordinates in the plane.
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    [[nodiscard]] double elevation() const;
    Acad::ErrorStatus setElevation(double elevation);
    [[nodiscard]] double thickness() const;
    Acad::ErrorStatus setThickness(double thickness);
    /// Whether dashes run across vertices.
    [[nodiscard]] bool hasPlinegen() const;
    void setPlinegen(bool across);
    /// Do nothing: memory is managed by the records.
    void minimizeMemory() const {}
    void maximizeMemory(unsigned int /*vertices*/) const {}

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
    /// Returns the index of each vertex's first record, then the end of the last vertex's records.
    [[nodiscard]] const std::vector<std::size_t>& vertices() const;
    /// Returns the range of a vertex's records, up to the next vertex; empty when there is no such vertex.
    [[nodiscard]] zuhost::TagRange vertexRange(unsigned int index) const;
    /// Returns a number of a vertex, 0 when it is missing.
    [[nodiscard]] double vertexReal(unsigned int index, int code) const;
    Acad::ErrorStatus setVertexReals(unsigned int index, std::initializer_list<std::pair<int, double>> reals);
    Acad::ErrorStatus setVertexCount(unsigned int count);
    /// Sets a number of the whole polyline, which stands before its vertices.
    Acad::ErrorStatus setHeadReal(int code, double value);
    [[nodiscard]] AcGeMatrix3d planeToWorld() const;
    [[nodiscard]] std::vector<zuhost::CurvePiece> pieces() const override;
    [[nodiscard]] AcGeVector3d extrusion() const override { return normal(); }
    Acad::ErrorStatus reverse() override;
    Acad::ErrorStatus cut(double from, double to, std::unique_ptr<AcDbCurve>& part) const override;
    Acad::ErrorStatus offset(double distance, std::unique_ptr<AcDbCurve>& parallel) const override;

    mutable std::vector<std::size_t> vertices_; ///< Empty until first used.
    mutable std::uint32_t verticesVersion_ = 0;
};

class ZUHOST_API AcDbText : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbText);
    AcDbText() = default;
    /// The angle is in radians. A height of 0 is written as it is: the style's is not looked up.
    AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style = AcDbObjectId::kNull,
             double height = 0.0, double rotation = 0.0);

    /// The caller frees the text with acutDelString.
    [[nodiscard]] ACHAR* textString() const;
    /// Valid until the next call or the object's end.
    [[nodiscard]] const ACHAR* textStringConst() const;
    Acad::ErrorStatus textString(AcString& text) const;
    Acad::ErrorStatus setTextString(const ACHAR* text);
    /// The start of the text, in world coordinates.
    [[nodiscard]] AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& position);
    /// The alignment point of texts that are not left-aligned, in world coordinates; position() when missing.
    [[nodiscard]] AcGePoint3d alignmentPoint() const;
    Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& point);
    [[nodiscard]] bool isDefaultAlignment() const;
    /// eNotImplementedYet: fonts are not measured, so the position of a text that is not left-aligned stays.
    Acad::ErrorStatus adjustAlignment(const AcDbDatabase* database = nullptr);
    [[nodiscard]] double height() const;
    Acad::ErrorStatus setHeight(double height);
    /// In radians.
    [[nodiscard]] double rotation() const;
    Acad::ErrorStatus setRotation(double angle);
    /// The slant in radians.
    [[nodiscard]] double oblique() const;
    Acad::ErrorStatus setOblique(double angle);
    [[nodiscard]] double widthFactor() const;
    Acad::ErrorStatus setWidthFactor(double factor);
    /// The numbers of files that stand for no mode are returned as they are.
    [[nodiscard]] AcDb::TextHorzMode horizontalMode() const;
    Acad::ErrorStatus setHorizontalMode(AcDb::TextHorzMode mode);
    [[nodiscard]] AcDb::TextVertMode verticalMode() const;
    Acad::ErrorStatus setVerticalMode(AcDb::TextVertMode mode);
    [[nodiscard]] bool isMirroredInX() const;
    Acad::ErrorStatus mirrorInX(bool mirrored);
    [[nodiscard]] bool isMirroredInY() const;
    Acad::ErrorStatus mirrorInY(bool mirrored);
    /// Null when the drawing lacks the style.
    [[nodiscard]] AcDbObjectId textStyle() const;
    Acad::ErrorStatus setTextStyle(AcDbObjectId style);
    [[nodiscard]] AcGeVector3d normal() const;
    /// The points stay where they are. eInvalidInput for a vector without length.
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    [[nodiscard]] double thickness() const;
    Acad::ErrorStatus setThickness(double thickness);
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;

protected:
    /// Keeps a text that a member returns by pointer.
    static const ACHAR* kept(std::unique_ptr<std::wstring>& place, std::wstring text) {
        place = std::make_unique<std::wstring>(std::move(text));
        return place->c_str();
    }
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
    [[nodiscard]] bool isMirrored(std::int64_t bit) const;
    Acad::ErrorStatus setMirrored(std::int64_t bit, bool mirrored);
    /// The group code of the vertical mode.
    [[nodiscard]] virtual int verticalCode() const { return 73; }

    mutable std::unique_ptr<std::wstring> text_; ///< Returned by textStringConst.
};

class ZUHOST_API AcDbMText : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbMText);
    AcDbMText() = default;

    /// Row by row.
    enum AttachmentPoint : int {
        kTopLeft = 1,
        kTopCenter = 2,
        kTopRight = 3,
        kMiddleLeft = 4,
        kMiddleCenter = 5,
        kMiddleRight = 6,
        kBottomLeft = 7,
        kBottomCenter = 8,
        kBottomRight = 9
    };

    /// Returns the text with its formatting codes, all parts joined; the caller frees it with acutDelString.
    [[nodiscard]] ACHAR* contents() const;
    Acad::ErrorStatus contents(AcString& text) const;
    Acad::ErrorStatus setContents(const ACHAR* text);
    [[nodiscard]] AcGePoint3d location() const;
    Acad::ErrorStatus setLocation(const AcGePoint3d& location);
    [[nodiscard]] double textHeight() const;
    Acad::ErrorStatus setTextHeight(double height);
    /// The width at which lines are broken; 0 for none.
    [[nodiscard]] double width() const;
    Acad::ErrorStatus setWidth(double width);
    [[nodiscard]] AttachmentPoint attachment() const;
    Acad::ErrorStatus setAttachment(AttachmentPoint point);
    /// In radians.
    [[nodiscard]] double rotation() const;
    Acad::ErrorStatus setRotation(double angle);
    /// The direction of the lines, in world coordinates.
    [[nodiscard]] AcGeVector3d direction() const;
    Acad::ErrorStatus setDirection(const AcGeVector3d& direction);
    [[nodiscard]] AcGeVector3d normal() const;
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    [[nodiscard]] double lineSpacingFactor() const;
    /// eInvalidInput outside 0.25 to 4.
    Acad::ErrorStatus setLineSpacingFactor(double factor);
    /// Null when the drawing lacks the style.
    [[nodiscard]] AcDbObjectId textStyle() const;
    Acad::ErrorStatus setTextStyle(AcDbObjectId style);
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

/// An insertion of a block.
class ZUHOST_API AcDbBlockReference : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockReference);
    AcDbBlockReference() = default;
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRecord);

    /// Returns the block's definition; null when the drawing lacks it.
    [[nodiscard]] AcDbObjectId blockTableRecord() const;
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
    /// eCannotScaleNonUniformly for a matrix whose axes are not perpendicular to each other.
    Acad::ErrorStatus setBlockTransform(const AcGeMatrix3d& transform);
    /// The insertion point stays where it is. eInvalidInput for a vector without length.
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    // ---- attributes
    /// Appends the attribute, takes ownership of it and leaves it open for write. An attribute of a reference
    /// that is in no database has no id yet; it is added to the database together with the reference.
    Acad::ErrorStatus appendAttribute(AcDbAttribute* attribute);
    Acad::ErrorStatus appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute);
    /// Iterates over the attributes that are not erased; the caller deletes the iterator.
    [[nodiscard]] AcDbObjectIterator* attributeIterator() const;
    Acad::ErrorStatus openAttribute(AcDbAttribute*& attribute, AcDbObjectId id, AcDb::OpenMode mode,
                                    bool openErased = false) const;
    Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const override;

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;
    /// Circles and arcs that the reference scales unequally become ellipses; eCannotScaleNonUniformly for
    /// other entities that can't be scaled so. Attributes are not among the parts, their definitions are.
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override;
    Acad::ErrorStatus extentsUnder(const AcGeMatrix3d& matrix, zuhost::Expansion& expansion,
                                   AcDbExtents& extents) const override;
    void forEachPart(const std::function<void(AcDbEntity&)>& change) override;
    void copyPartsTo(AcDbEntity& copy) const override;
    void subAppended() override;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
    friend struct zuhost::ObjectAccess;
    [[nodiscard]] std::wstring nameOfBlock() const;
    struct Placement {
        AcGePoint3d position;
        AcGeScale3d scale;
        double rotation = 0.0;
        AcGeVector3d normal = AcGeVector3d::kZAxis;
    };
    friend class AcDbAttribute;
    /// Returns the definition, whether it is open or not, to be read; null when the drawing lacks it.
    [[nodiscard]] const AcDbBlockTableRecord* definition() const;
    /// Maps the definition's coordinates to the world: blockTransform with the definition's base point.
    [[nodiscard]] AcGeMatrix3d definitionTransform() const;
    /// Returns the entities of the definition, whether they are open or not, to be read.
    [[nodiscard]] std::vector<const AcDbEntity*> definitionEntities() const;
    /// Returns the class marker: references repeated in rows and columns have a different one.
    [[nodiscard]] std::string_view marker() const;
    /// Returns the records of that class.
    [[nodiscard]] zuhost::TagView ownSection() const;
    [[nodiscard]] Placement placement() const;

    using NewParts = std::vector<zuhost::PendingPtr<AcDbEntity>>;
    [[nodiscard]] const NewParts& newAttributes() const;
    [[nodiscard]] NewParts& newAttributes();

    std::unique_ptr<NewParts> newAttributes_; ///< Of a reference in no database; null in most others.
};

#include "dbattrib.h"
#include "dboiter.h"
#include "dbvertex.h"
