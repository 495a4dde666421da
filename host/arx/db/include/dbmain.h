#pragma once

#include "AcString.h"
#include "acdb.h"
#include "acutmem.h"
#include "dbcolor.h"
#include "dbextents.h"
#include "dbid.h"
#include "gepnt2d.h"
#include "gept3dar.h"
#include "rxclass.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <variant>
#include <vector>

class AcDbBlockTable;
class AcDbDictionary;
class AcDbDimStyleTable;
class AcDbIdMapping;
class AcDbLayerTable;
class AcDbLinetypeTable;
class AcDbObject;
class AcDbRegAppTable;
class AcDbTextStyleTable;
class AcDbTransactionManager;

namespace zuhost {
class Document;
class ReactorIndex;
class TagList;
class TagRef;
class TagView;
struct DatabaseCore;
struct DocumentError;
struct Expansion;
struct ObjectAccess;
struct TagRange;
DatabaseCore& coreOf(const AcDbDatabase& database);
AcRxObject* makeEntity();
AcRxObject* makeSymbolTable();

/// Deletes an object that another one owned while both are in no database. One that a smart pointer holds is
/// left to that pointer.
struct PendingDeleter {
    void operator()(AcDbObject* object) const;
};
template <typename T>
using PendingPtr = std::unique_ptr<T, PendingDeleter>;
} // namespace zuhost

/// Notified of the changes of one object that it was added to. The object must not be changed by the reactor.
class AcDbObjectReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObjectReactor);

    virtual void openedForModify(const AcDbObject* /*object*/) {}
    virtual void modified(const AcDbObject* /*object*/) {}
    virtual void erased(const AcDbObject* /*object*/, bool /*erasing*/) {}
    /// The object was copied by clone or deepClone; the copy may be in no database yet.
    virtual void copied(const AcDbObject* /*object*/, const AcDbObject* /*copy*/) {}
    /// A change of the object was undone or redone; `modified` is called too.
    virtual void modifyUndone(const AcDbObject* /*object*/) {}
    /// The object's addition was undone, or redone.
    virtual void unappended(const AcDbObject* /*object*/) {}
    virtual void reappended(const AcDbObject* /*object*/) {}
    virtual void goodbye(const AcDbObject* /*object*/) {}
};

/// Notified of changes of the objects of a database when they are closed after the change.
class AcDbDatabaseReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabaseReactor);

    virtual void objectAppended(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/) {}
    /// An addition that was undone, and one that was redone.
    virtual void objectUnAppended(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/) {}
    virtual void objectReAppended(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/) {}
    /// Called before the first change while an object is open.
    virtual void objectOpenedForModify(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/) {}
    virtual void objectModified(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/) {}
    virtual void objectErased(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/,
                              bool /*erased*/ = true) {}
    /// A variable of the drawing is set, by its name without "$".
    virtual void headerSysVarWillChange(const AcDbDatabase* /*database*/, const ACHAR* /*name*/) {}
    virtual void headerSysVarChanged(const AcDbDatabase* /*database*/, const ACHAR* /*name*/,
                                     bool /*success*/) {}
    /// The database is about to be destroyed; it no longer refers to the reactor afterwards.
    virtual void goodbye(const AcDbDatabase* /*database*/) {}
};

/// An object of a drawing. Its setters return eInvalidInput for numbers that are not finite.
///
/// Objects of a database are opened with acdbOpenObject and closed again; members that change the object need
/// it to be open for write and otherwise return eNotOpenForWrite and change nothing. An object that is in no
/// database yet is owned by the code that created it and may always be changed.
class AcDbObject : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObject);
    ~AcDbObject() override;

    [[nodiscard]] AcDbObjectId objectId() const { return AcDbObjectId(stub_); }
    [[nodiscard]] AcDbObjectId ownerId() const;
    [[nodiscard]] AcDbDatabase* database() const;
    [[nodiscard]] AcDbHandle getAcDbHandle() const { return objectId().handle(); }
    void getAcDbHandle(AcDbHandle& handle) const { handle = getAcDbHandle(); }

    // ---- open state
    Acad::ErrorStatus close();
    /// eOnLockedLayer for an entity whose layer is locked.
    Acad::ErrorStatus upgradeOpen();
    Acad::ErrorStatus downgradeOpen();
    [[nodiscard]] bool isReadEnabled() const { return readers_ > 0 || writing_ || stub_ == nullptr; }
    [[nodiscard]] bool isWriteEnabled() const { return writing_ || stub_ == nullptr; }
    [[nodiscard]] bool isNewObject() const;
    [[nodiscard]] bool isModified() const { return modified_; }

    // ---- erasing
    /// eOnLockedLayer for an entity whose layer is locked, unless it is new or was opened in spite of it.
    Acad::ErrorStatus erase(bool erasing = true);
    [[nodiscard]] bool isErased() const { return objectId().isErased(); }

    // ---- reactors
    void addReactor(AcDbObjectReactor* reactor) const;
    void removeReactor(AcDbObjectReactor* reactor) const;
    Acad::ErrorStatus addPersistentReactor(AcDbObjectId reactor);
    Acad::ErrorStatus removePersistentReactor(AcDbObjectId reactor);
    [[nodiscard]] bool hasPersistentReactor(AcDbObjectId reactor) const;
    /// Returns the persistent reactors in stored order, then the transient ones; acdbIsPersistentReactor
    /// tells them apart. Null for an object that is in no database. Valid until the object changes.
    [[nodiscard]] const AcDbVoidPtrArray* reactors() const;

    // ---- extended data
    /// Returns the values of one application, or of all (null), as a chain that the caller frees with
    /// acutRelRb; null when there are none.
    [[nodiscard]] resbuf* xData(const ACHAR* application = nullptr) const;
    /// Replaces the values of each application named in the chain (1001 items); an application without values
    /// loses its data. eRegappIdNotFound for one that is not registered, eXdataSizeExceeded when the object's
    /// data would exceed 16 KB; the object is then unchanged.
    Acad::ErrorStatus setXData(const resbuf* chain);

    /// Null when there is none, or it is erased.
    [[nodiscard]] AcDbObjectId extensionDictionary() const;
    /// Adds an empty extension dictionary. eAlreadyInDb when there is one, eNotInDatabase for an object that
    /// is in no database yet.
    Acad::ErrorStatus createExtensionDictionary();
    /// Erases the extension dictionary; eContainerNotEmpty when it has entries, eKeyNotFound when there is
    /// none.
    Acad::ErrorStatus releaseExtensionDictionary();

    // ---- copies
    /// Returns a copy with the same records and extended data, which is in no database; the caller owns it.
    /// The copy names no persistent reactors and no extension dictionary.
    [[nodiscard]] AcRxObject* clone() const override;
    /// Copies the object, its vertices, attributes and extension dictionary into the same database and adds
    /// them to the owner, a block or a dictionary; the copy stays open for write. `copy` is null, with eOk,
    /// for an object that the mapping has already. AcDbDatabase::deepCloneObjects translates the references
    /// between the objects of one operation as well.
    Acad::ErrorStatus deepClone(AcDbObject* owner, AcDbObject*& copy, AcDbIdMapping& mapping,
                                bool isPrimary = true) const;

protected:
    AcDbObject();

    // ---- records
    /// Returns the records where they are: in the drawing's bytes until the object is first changed, then in
    /// a list of its own. Valid until the object changes.
    [[nodiscard]] zuhost::TagView tags() const;
    /// Returns the object's own list of records; null while they are those in the drawing's bytes.
    [[nodiscard]] const zuhost::TagList* ownTags() const;
    /// Returns a number that grows with each change of the records; caches compare it.
    [[nodiscard]] std::uint32_t tagVersion() const { return tagVersion_; }

    /// Returns eOk when the object may be changed now. Before the first change records its state for undo and
    /// gives it a list of its own: places in the drawing's bytes do not apply to it.
    Acad::ErrorStatus assertWriteEnabled();
    /// Returns the records to be changed. Call assertWriteEnabled first.
    zuhost::TagList& changingTags();
    /// Defers a change: `applyDeferred` applies it to the records when they are next read.
    void deferChange();
    virtual void applyDeferred(zuhost::TagList& /*tags*/) const {}
    /// Returns the records without the deferred changes.
    [[nodiscard]] zuhost::TagView storedTags() const;

    [[nodiscard]] zuhost::DatabaseCore* core() const;
    [[nodiscard]] std::wstring decoded(std::string_view value) const;
    [[nodiscard]] std::string encoded(std::wstring_view text) const;
    /// Returns the records of the class with the marker; all before the extended data for an empty one.
    [[nodiscard]] zuhost::TagView section(std::string_view marker) const;

    /// Return typed records of the class's own section, or the default when there is none.
    [[nodiscard]] double realTag(std::string_view marker, int code, double missing) const;
    [[nodiscard]] std::int64_t integerTag(std::string_view marker, int code, std::int64_t missing) const;
    [[nodiscard]] std::wstring textTag(std::string_view marker, int code) const;
    [[nodiscard]] AcGePoint3d pointTag(std::string_view marker, int code,
                                       const AcGePoint3d& missing = {}) const;
    Acad::ErrorStatus setRealTag(std::string_view marker, int code, double value);
    Acad::ErrorStatus setIntegerTag(std::string_view marker, int code, std::int64_t value);
    Acad::ErrorStatus setTextTag(std::string_view marker, int code, std::wstring_view text);
    Acad::ErrorStatus setPointTag(std::string_view marker, int code, const AcGePoint3d& point);

    /// Returns the records that a new object begins with. Called when one that is in no database is first
    /// read or changed: objects of a drawing never need them.
    [[nodiscard]] virtual zuhost::TagList newRecords() const;
    /// Returns a list of the type and the markers of the classes, in order.
    [[nodiscard]] static zuhost::TagList recordsOf(std::string_view type,
                                                   std::initializer_list<std::string_view> markers);

    /// Called after the object itself was erased or unerased.
    virtual void subErased(bool /*erasing*/) {}
    /// Called when the object has become one of a database and is open for write: adds what it held until
    /// then.
    virtual void subAppended() {}

private:
    friend struct zuhost::DatabaseCore;
    friend struct zuhost::ObjectAccess;
    friend struct zuhost::PendingDeleter;
    friend class AcDbDatabase;
    template <typename T>
    friend class AcDbObjectPointer;

    void notifyClosed();
    /// Calls `notify` with each transient reactor, except those that are added or removed meanwhile.
    template <typename Notify>
    void notifyReactors(Notify notify) const {
        if (!reactors_)
            return;
        const auto all = reactors_->transient;
        for (AcDbObjectReactor* reactor : all)
            if (isTransientReactor(reactor))
                notify(*reactor);
    }
    [[nodiscard]] bool isTransientReactor(const AcDbObjectReactor* reactor) const;
    /// Flushes deferred changes; creates the records of an object that is in no database.
    void completeTags() const;
    /// Replaces the own list of records; without one the records are again those in the drawing's bytes.
    void replaceTags(std::optional<zuhost::TagList> tags);
    /// Records the state for undo and notifies reactors before the first change.
    Acad::ErrorStatus startChange();
    void flushChanges() const;
    /// Builds the index of the persistent reactors of an object that has many.
    void indexReactors() const;
    /// Null when it was not built since the records changed.
    [[nodiscard]] zuhost::ReactorIndex* currentReactorIndex() const;
    template <typename Change>
    Acad::ErrorStatus changeReactors(Change change);

    /// What few objects have.
    struct Reactors {
        std::vector<AcDbObjectReactor*> transient;
        AcDbVoidPtrArray list; ///< Returned by `reactors`.
        std::unique_ptr<zuhost::ReactorIndex> index;
    };
    Reactors& ownReactors() const;

    AcDbStub* stub_ = nullptr;
    mutable std::unique_ptr<zuhost::TagList> own_; ///< Null until the object is first changed.
    mutable std::unique_ptr<Reactors> reactors_;
    std::uint32_t tagVersion_ = 0;
    std::uint32_t recordedStep_ = 0; ///< The undo step in which the object's state was recorded last.
    std::uint16_t readers_ = 0;
    mutable bool hasDeferredChanges_ : 1 = false;
    bool writing_ : 1 = false;
    bool lockIsIgnored_ : 1 = false; ///< Open for write whatever the entity's layer.
    bool isPending_ : 1 = false;     ///< In no database, and owned by an object that is in none either.
    bool isHeld_ : 1 = false;        ///< In no database, and held by a smart pointer.
    bool modified_ = false;          ///< Changed since the object was opened.
    bool appended_ = false;          ///< Added to the database since the object was opened.
    bool eraseToggled_ = false;      ///< Erased or unerased since the object was opened.
};

/// An object that is drawn.
class AcDbEntity : public AcDbObject {
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

/// Opens an object. On failure `object` is null.
/// eNullObjectId, eWasErased (unless `openErased`), eWasOpenForWrite, eWasOpenForRead (asking to write),
/// eOnLockedLayer (asking to write an entity whose layer is locked), eAtMaxReaders, eNotThatKindOfClass
/// (typed form).
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);
/// As above, but opens entities on locked layers for write too; they can then be erased as well.
Acad::ErrorStatus acdbForceOpenObjectOnLockedLayer(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                                   bool openErased = false);

template <typename T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                 bool openErased = false, bool openOnLockedLayer = false) {
    object = nullptr;
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus status = openOnLockedLayer
                                         ? acdbForceOpenObjectOnLockedLayer(opened, id, mode, openErased)
                                         : acdbOpenAcDbObject(opened, id, mode, openErased);
    if (status != Acad::eOk)
        return status;
    object = T::cast(opened);
    if (object != nullptr)
        return Acad::eOk;
    opened->close();
    return Acad::eNotThatKindOfClass;
}

inline Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                            bool openErased = false) {
    return acdbOpenObject(entity, id, mode, openErased);
}

/// Returns whether an entry of AcDbObject::reactors refers to an object of the drawing, and to which.
bool acdbIsPersistentReactor(const void* reactor);
AcDbObjectId acdbPersistentReactorObjectId(const void* reactor);

/// Registers an application in the working database, so that extended data may name it.
int acdbRegApp(const ACHAR* application);
Acad::ErrorStatus acdbRegApp(AcDbDatabase* database, const ACHAR* application);

/// A drawing.
class AcDbDatabase : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabase);

    /// Creates an empty drawing; with `buildDefaultDrawing` false a database without one, to be filled by
    /// dxfIn.
    explicit AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = true);
    ~AcDbDatabase() override;
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    /// Fills the database from a DXF file, ASCII or binary. eFileNotFound, eFileAccessErr or eBadDxfFile; the
    /// database is then unchanged. No log file is written: zuhost/drawing_files.h has the reason and
    /// warnings.
    Acad::ErrorStatus dxfIn(const ACHAR* path, const ACHAR* logFile = nullptr);
    /// Saves as DXF in the form and version that the drawing was read in, replacing the file as a whole.
    /// Precision and version are not modelled: numbers keep their value, eNotApplicable for another version
    /// than the drawing's. On failure the old file is untouched: eFileAccessErr when the file is the one that
    /// the drawing was opened from (or last saved to) and another program has changed or removed it since,
    /// see zuhost/drawing_files.h; eFilerError for all others.
    Acad::ErrorStatus dxfOut(const ACHAR* path, int precision = 16,
                             AcDb::AcDbDwgVersion version = AcDb::kDHL_CURRENT, bool saveThumbnail = false);
    Acad::ErrorStatus dxfOut(const ACHAR* path, bool) = delete;
    /// Returns the path that the drawing was read from or last saved to, valid until the next of either;
    /// eNoFileName and null when there is none.
    Acad::ErrorStatus getFilename(const ACHAR*& path) const;
    /// The version of the file that the drawing was read from.
    [[nodiscard]] AcDb::AcDbDwgVersion originalFileVersion() const;

    /// eUnknownHandle when there is no object with the handle. `createIfNotFound` is not supported.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound,
                                      const AcDbHandle& handle) const;
    [[nodiscard]] std::size_t approxNumObjects() const;

    [[nodiscard]] AcDbObjectId blockTableId() const;
    [[nodiscard]] AcDbObjectId layerTableId() const;
    [[nodiscard]] AcDbObjectId linetypeTableId() const;
    [[nodiscard]] AcDbObjectId textStyleTableId() const;
    [[nodiscard]] AcDbObjectId regAppTableId() const;
    [[nodiscard]] AcDbObjectId dimStyleTableId() const;
    /// The block table record of the current space: model space.
    [[nodiscard]] AcDbObjectId currentSpaceId() const;
    [[nodiscard]] AcDbObjectId namedObjectsDictionaryId() const;
    /// Null when the drawing has none (before R13).
    [[nodiscard]] AcDbObjectId groupDictionaryId() const;

    // Each opens the object; the caller closes it.
    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbRegAppTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode = AcDb::kForRead) {
        return getSymbolTable(table, mode);
    }
    Acad::ErrorStatus getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode = AcDb::kForRead) {
        return getSymbolTable(table, mode);
    }
    Acad::ErrorStatus getLinetypeTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode = AcDb::kForRead) {
        return getSymbolTable(table, mode);
    }
    Acad::ErrorStatus getTextStyleTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead) {
        return getSymbolTable(table, mode);
    }
    Acad::ErrorStatus getRegAppTable(AcDbRegAppTable*& table, AcDb::OpenMode mode = AcDb::kForRead) {
        return getSymbolTable(table, mode);
    }
    Acad::ErrorStatus getDimStyleTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead) {
        return getSymbolTable(table, mode);
    }
    Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dictionary,
                                                AcDb::OpenMode mode = AcDb::kForRead);
    /// Created when the drawing has none (with kForWrite only).
    Acad::ErrorStatus getGroupDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);

    /// Adds a new object that no table, block or dictionary owns; eNoDatabase when the database has no
    /// drawing.
    Acad::ErrorStatus addAcDbObject(AcDbObjectId& id, AcDbObject* object);

    void addReactor(AcDbDatabaseReactor* reactor);
    void removeReactor(AcDbDatabaseReactor* reactor);

    // ---- variables of the drawing. One that the drawing lacks has the host's default. Setting one is not
    // recorded for undo.
    [[nodiscard]] AcDbObjectId clayer() const;
    Acad::ErrorStatus setClayer(AcDbObjectId layer);
    /// Null for "ByLayer" and "ByBlock".
    [[nodiscard]] AcDbObjectId celtype() const;
    Acad::ErrorStatus setCeltype(AcDbObjectId linetype);
    [[nodiscard]] AcDbObjectId textstyle() const;
    Acad::ErrorStatus setTextstyle(AcDbObjectId style);
    /// The colour of new entities. Setting red, green and blue returns eNotApplicable: drawings hold an
    /// index.
    [[nodiscard]] AcCmColor cecolor() const;
    Acad::ErrorStatus setCecolor(const AcCmColor& color);
    [[nodiscard]] AcDb::LineWeight celweight() const;
    Acad::ErrorStatus setCelweight(AcDb::LineWeight weight);
    [[nodiscard]] double ltscale() const;
    /// eInvalidInput for scales that are not positive.
    Acad::ErrorStatus setLtscale(double scale);
    [[nodiscard]] double celtscale() const;
    Acad::ErrorStatus setCeltscale(double scale);
    [[nodiscard]] double dimscale() const;
    Acad::ErrorStatus setDimscale(double scale);
    [[nodiscard]] double textsize() const;
    Acad::ErrorStatus setTextsize(double size);
    [[nodiscard]] AcDb::UnitsValue insunits() const;
    Acad::ErrorStatus setInsunits(AcDb::UnitsValue units);
    [[nodiscard]] AcDb::MeasurementValue measurement() const;
    Acad::ErrorStatus setMeasurement(AcDb::MeasurementValue measurement);
    [[nodiscard]] Adesk::Int16 lunits() const;
    Acad::ErrorStatus setLunits(Adesk::Int16 units);
    [[nodiscard]] Adesk::Int16 luprec() const;
    Acad::ErrorStatus setLuprec(Adesk::Int16 digits);
    [[nodiscard]] Adesk::Int16 aunits() const;
    Acad::ErrorStatus setAunits(Adesk::Int16 units);
    [[nodiscard]] Adesk::Int16 auprec() const;
    Acad::ErrorStatus setAuprec(Adesk::Int16 digits);
    [[nodiscard]] Adesk::Int16 pdmode() const;
    Acad::ErrorStatus setPdmode(Adesk::Int16 mode);
    [[nodiscard]] double pdsize() const;
    Acad::ErrorStatus setPdsize(double size);
    [[nodiscard]] bool tilemode() const;
    [[nodiscard]] AcGePoint3d insbase() const;
    Acad::ErrorStatus setInsbase(const AcGePoint3d& base);
    /// As stored in the drawing: changes of entities do not change them.
    [[nodiscard]] AcGePoint3d extmin() const;
    [[nodiscard]] AcGePoint3d extmax() const;
    [[nodiscard]] AcGePoint2d limmin() const;
    Acad::ErrorStatus setLimmin(const AcGePoint2d& corner);
    [[nodiscard]] AcGePoint2d limmax() const;
    Acad::ErrorStatus setLimmax(const AcGePoint2d& corner);

    // ---- copies of objects, with what they own; dbidmap.h has the mapping
    /// Copies objects of this database and adds the copies to the owner, a block or a dictionary of it; a
    /// null owner stands for each object's own owner. References between the copied objects are translated,
    /// those to others stay; groups that hold a copied entity do not hold its copy. The copies are closed.
    /// eInvalidOwnerObject for an owner of another kind; stops at the first object that cannot be copied.
    Acad::ErrorStatus deepCloneObjects(AcDbObjectIdArray& ids, AcDbObjectId owner, AcDbIdMapping& mapping,
                                       bool deferTranslation = false);
    /// Copies objects of another database into this one, with the block definitions, layers, linetypes, text
    /// and dimension styles and applications that they name. For those, and for table records among the
    /// objects, `cloning` decides about names that are in use here: kDrcIgnore keeps the records of this
    /// database, kDrcReplace overwrites them, others return eNotImplementedYet. References to objects that
    /// are not copied become null. eNotApplicable between drawings before R13 and later ones.
    Acad::ErrorStatus wblockCloneObjects(AcDbObjectIdArray& ids, AcDbObjectId owner, AcDbIdMapping& mapping,
                                         AcDb::DuplicateRecordCloning cloning, bool deferTranslation = false);
    /// Adds the model space of another database as a block with its $INSBASE as base point; the other
    /// database is not changed. eInvalidInput for an empty name, eDuplicateRecordName for one in use.
    Acad::ErrorStatus insert(AcDbObjectId& block, const ACHAR* name, AcDbDatabase* other,
                             bool preserveSource = true);

    /// Transactions are common to all databases.
    [[nodiscard]] AcDbTransactionManager* transactionManager() const;

    // ---- undo
    /// Begins an undo step: changes up to the next step are undone together. Does nothing within a group that
    /// the user opened (UNDO BEGIN).
    void startUndoRecord();
    void disableUndoRecording(bool disable);
    [[nodiscard]] bool undoRecording() const;
    /// Undoes a step; eUndoOperationNotAvailable when there is none.
    Acad::ErrorStatus undo();

private:
    friend zuhost::DatabaseCore& zuhost::coreOf(const AcDbDatabase& database);
    friend struct zuhost::ObjectAccess;
    Acad::ErrorStatus read(const ACHAR* path, bool strict);
    Acad::ErrorStatus read(std::string bytes, const ACHAR* name);
    Acad::ErrorStatus write(const ACHAR* path, bool binary);
    Acad::ErrorStatus install(std::variant<std::unique_ptr<zuhost::Document>, zuhost::DocumentError> opened,
                              bool strict);

    std::unique_ptr<zuhost::DatabaseCore> core_;
    std::wstring lastError_;
    std::wstring fileName_;
};
