#pragma once

// Part of dbmain.h: entities.

#include "dbcolor.h"
#include "dbextents.h"
#include "dbmain_object.h"

#include <zuhost/platform/export.h>

#include <functional>

class AcGePlane;

namespace zuhost {
class Document;
struct Expansion;
} // namespace zuhost

/// An object that is drawn.
class ZUHOST_API AcDbEntity : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbEntity);

    /// As AcDbObject::clone; the copy holds copies of the vertices or attributes.
    [[nodiscard]] AcRxObject* clone() const override;

    [[nodiscard]] AcDbObjectId blockId() const { return ownerId(); }
    /// Name of the layer, "0" when none is given; the caller frees it with acutDelString.
    [[nodiscard]] ACHAR* layer() const;
    Acad::ErrorStatus layer(AcString& name) const;
    [[nodiscard]] AcDbObjectId layerId() const;
    /// eKeyNotFound when the drawing has no such layer.
    Acad::ErrorStatus setLayer(const ACHAR* name);
    Acad::ErrorStatus setLayer(AcDbObjectId layer);
    /// 1 to 255, 0 by block, 256 by layer (also when none is given).
    [[nodiscard]] Adesk::UInt16 colorIndex() const;
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 index);
    /// Name of the linetype, "ByLayer" when none is given; the caller frees it with acutDelString.
    [[nodiscard]] ACHAR* linetype() const;
    Acad::ErrorStatus linetype(AcString& name) const;
    [[nodiscard]] AcDb::LineWeight lineWeight() const;
    [[nodiscard]] bool isInPaperSpace() const;
    [[nodiscard]] bool isVisible() const;

    // ---- further common properties; `doSubents` also sets vertices and attributes
    [[nodiscard]] AcCmColor color() const;
    /// eNotApplicable for red, green and blue in drawings before R2004, which can't hold them.
    Acad::ErrorStatus setColor(const AcCmColor& color, bool doSubents = true,
                               AcDbDatabase* database = nullptr);
    /// Null when the drawing lacks the linetype.
    [[nodiscard]] AcDbObjectId linetypeId() const;
    /// eKeyNotFound when the drawing has no such linetype.
    Acad::ErrorStatus setLinetype(const ACHAR* name, bool doSubents = true);
    Acad::ErrorStatus setLinetype(AcDbObjectId linetype, bool doSubents = true);
    [[nodiscard]] double linetypeScale() const;
    /// eInvalidInput unless the scale is above 0.
    Acad::ErrorStatus setLinetypeScale(double scale, bool doSubents = true);
    /// eInvalidInput for other than the declared weights; eNotApplicable in drawings before R2000.
    Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight, bool doSubents = true);
    [[nodiscard]] AcDb::Visibility visibility() const;
    Acad::ErrorStatus setVisibility(AcDb::Visibility visibility, bool doSubents = true);
    /// Sets layer, colour, linetype, its scale and line weight to the current ones of the drawing: the
    /// object's own, or the working database.
    void setDatabaseDefaults();
    void setDatabaseDefaults(AcDbDatabase* database);
    /// Copies layer, colour, linetype, its scale, line weight and visibility. eWrongDatabase for an entity of
    /// another drawing.
    Acad::ErrorStatus setPropertiesFrom(const AcDbEntity* other, bool doSubents = true);

    // ---- geometry
    /// eCannotScaleNonUniformly when the result would be another kind of entity (an ellipse for a circle);
    /// eNotImplementedYet for entities that are not modelled. The entity is unchanged on failure.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix);
    /// Returns a transformed copy, which is in no database; the caller owns it.
    Acad::ErrorStatus getTransformedCopy(const AcGeMatrix3d& matrix, AcDbEntity*& copy) const;
    /// eInvalidExtents for an entity without extent (a block reference without visible entities);
    /// eNotImplementedYet for entities that are not modelled and for texts: fonts are not measured. A block
    /// reference has the extents of what can be measured.
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const;
    /// Appends the points in which two curves meet, in the order of this one. Extending makes lines endless
    /// and arcs whole; polylines are not extended. eNotImplementedYet when one is no curve or has elliptical
    /// arcs.
    Acad::ErrorStatus intersectWith(const AcDbEntity* other, AcDb::Intersect type, AcGePoint3dArray& points,
                                    Adesk::GsMarker thisMarker = 0, Adesk::GsMarker otherMarker = 0) const;
    /// Appends the points in which the projections onto the plane meet, on the plane.
    Acad::ErrorStatus intersectWith(const AcDbEntity* other, AcDb::Intersect type, const AcGePlane& plane,
                                    AcGePoint3dArray& points, Adesk::GsMarker thisMarker = 0,
                                    Adesk::GsMarker otherMarker = 0) const;
    /// Appends new entities, which are in no database and which the caller owns, that look like this one.
    /// eNotApplicable for an entity that has no parts; eNotImplementedYet for entities that are not modelled.
    Acad::ErrorStatus explode(AcDbVoidPtrArray& entities) const;
    /// Returns whether getPlane has a plane.
    [[nodiscard]] bool isPlanar() const;
    /// Returns the plane of the entity (kPlanar), or one of the planes through a straight one (kLinear).
    /// eNonPlanarEntity, with kNonPlanar, for a polyline in space; eNotImplementedYet for entities other than
    /// curves, texts and block references. The plane is unchanged on failure.
    virtual Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const;

protected:
    AcDbEntity() = default;
    friend class AcDbBlockReference;
    friend class AcDbBlockTableRecord;
    friend struct zuhost::DatabaseCore;
    friend struct zuhost::ObjectAccess;
    virtual Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix);
    virtual Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const;
    virtual Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const;
    /// Returns the extents of the transformed entity, whatever the matrix.
    virtual Acad::ErrorStatus extentsUnder(const AcGeMatrix3d& matrix, zuhost::Expansion& expansion,
                                           AcDbExtents& extents) const;
    /// Calls the function with each vertex or attribute, open for write.
    virtual void forEachPart(const std::function<void(AcDbEntity&)>& /*change*/) {}
    /// Adds copies of the vertices or attributes to a copy that is in no database.
    virtual void copyPartsTo(AcDbEntity& /*copy*/) const {}
    [[nodiscard]] std::wstring layerText() const;

    /// Returns whether drawings of the document's version have entities of this type.
    [[nodiscard]] bool canBeIn(const zuhost::Document& document) const;
    /// Returns whether drawings of the entity's version have the common property.
    [[nodiscard]] bool canHold(int code) const;
    void removeTags(std::string_view marker, std::initializer_list<int> codes);
    /// Completes the records of an entity that was added to a drawing: names the current layer when they name
    /// none, adds a missing layer, removes an unknown linetype and properties that the version lacks.
    void fitToDrawing();
    /// Returns the extrusion direction of a plane entity.
    [[nodiscard]] AcGeVector3d normalTag(std::string_view marker) const;
    /// Return the point of a plane entity, or a point of a plane with the normal, in world coordinates.
    [[nodiscard]] AcGePoint3d planePointTag(std::string_view marker, int code) const;
    [[nodiscard]] static AcGePoint3d inWorld(const AcGePoint3d& point, const AcGeVector3d& normal);
    /// Returns the vector with length 1; the z axis for one without length.
    [[nodiscard]] static AcGeVector3d unitNormal(const AcGeVector3d& direction);
    /// Sets the extrusion direction; eInvalidInput for a vector without length. Coordinates stay as they are.
    Acad::ErrorStatus setNormalTag(std::string_view marker, const AcGeVector3d& normal);
    /// Sets a point of a plane entity to one in world coordinates.
    Acad::ErrorStatus setPlanePointTag(std::string_view marker, int code, const AcGePoint3d& point);
    /// Name of a text style in the records (7), and the style.
    [[nodiscard]] AcDbObjectId styleTag(std::string_view marker) const;
    Acad::ErrorStatus setStyleTag(std::string_view marker, AcDbObjectId style);

private:
    Acad::ErrorStatus intersectUnder(const AcGeMatrix3d& matrix, const AcDbEntity* other,
                                     AcDb::Intersect type, AcGePoint3dArray& points) const;
};
