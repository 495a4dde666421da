#pragma once

// Part of dbmain.h: drawings.

#include "dbcolor.h"
#include "dbmain_object.h"
#include "gepnt2d.h"

#include <zuhost/platform/export.h>

#include <variant>

class AcDbBlockTable;
class AcDbDictionary;
class AcDbDimStyleTable;
class AcDbLayerTable;
class AcDbLinetypeTable;
class AcDbRegAppTable;
class AcDbTextStyleTable;
class AcDbTransactionManager;

namespace zuhost {
class Document;
struct DocumentError;
} // namespace zuhost

/// A drawing.
class ZUHOST_API AcDbDatabase : public AcRxObject {
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
    /// The height and thickness of new entities. Entities that modules create do not take them over.
    [[nodiscard]] double elevation() const;
    Acad::ErrorStatus setElevation(double elevation);
    [[nodiscard]] double thickness() const;
    Acad::ErrorStatus setThickness(double thickness);
    /// The user coordinate system in world coordinates. Input is in world coordinates whatever it is.
    [[nodiscard]] AcGePoint3d ucsorg() const;
    [[nodiscard]] AcGeVector3d ucsxdir() const;
    [[nodiscard]] AcGeVector3d ucsydir() const;
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

    /// Return a new database, which the caller deletes, in `output`; null on failure. Clipboard and names of
    /// files are not copied; nor are, but with the first form, objects that the copied ones do not need.
    ///
    /// Copies the whole drawing, as it would be saved.
    Acad::ErrorStatus wblock(AcDbDatabase*& output);
    /// Copies the entities of a block to the model space; the block's origin becomes $INSBASE.
    /// eInvalidInput for an id that is none of a block of this database.
    Acad::ErrorStatus wblock(AcDbDatabase*& output, AcDbObjectId block);
    /// Copies entities to the model space, where they keep their coordinates; the base point becomes
    /// $INSBASE. As wblockCloneObjects, eNotApplicable for drawings before R13.
    Acad::ErrorStatus wblock(AcDbDatabase*& output, const AcDbObjectIdArray& ids, const AcGePoint3d& base);
    /// The same, into the model space of a database that there is.
    Acad::ErrorStatus wblock(AcDbDatabase* output, const AcDbObjectIdArray& ids, const AcGePoint3d& base,
                             AcDb::DuplicateRecordCloning cloning);

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
