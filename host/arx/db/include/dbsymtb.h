#pragma once

#include "dbmain.h"
#include "zuhost/id_cursor.h"

#include <zuhost/platform/export.h>

/// An entry of a symbol table.
class ZUHOST_API AcDbSymbolTableRecord : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord);

    /// Returns the name. The caller of the first form frees it with acutDelString; that of the second form
    /// stays valid until the next call or the object's end.
    Acad::ErrorStatus getName(ACHAR*& name) const;
    Acad::ErrorStatus getName(const ACHAR*& name) const;
    Acad::ErrorStatus getName(AcString& name) const;
    /// eInvalidInput for an empty name and one with control characters or any of < > / \ " : ; ? , = | ` and
    /// *, with which only names of blocks can begin; eDuplicateRecordName when another record of the table
    /// has the name. All objects that name the record name it anew.
    Acad::ErrorStatus setName(const ACHAR* name);

    /// Returns true for a record of an external reference, and for one whose external reference is loaded.
    [[nodiscard]] bool isDependent() const { return hasFlag(16); }
    [[nodiscard]] bool isResolved() const { return !isDependent() || hasFlag(32); }

protected:
    AcDbSymbolTableRecord() = default;
    /// Returns the first records of the type, with an empty name and no flags.
    [[nodiscard]] static zuhost::TagList namedRecord(std::string_view type, std::string_view marker);
    [[nodiscard]] std::wstring nameText() const;
    [[nodiscard]] bool hasFlag(std::int64_t bit) const;
    Acad::ErrorStatus setFlag(std::int64_t bit, bool on);
    /// Keeps a text that a member returns by pointer.
    const ACHAR* kept(std::wstring text) const;

private:
    friend class AcDbSymbolTable;
    friend struct zuhost::ObjectAccess;
    mutable std::wstring name_;
    mutable std::wstring kept_;
};

/// Iterates over the records of a symbol table in their order.
class AcDbSymbolTableIterator {
public:
    void start(bool atBeginning = true, bool skipErased = true) { records_.start(atBeginning, skipErased); }
    [[nodiscard]] bool done() const { return records_.done(); }
    void step(bool forward = true, bool skipErased = true) { records_.step(forward, skipErased); }
    /// eInvalidIndex at the end.
    Acad::ErrorStatus getRecordId(AcDbObjectId& id) const { return records_.getId(id); }
    /// Opens the record; the caller closes it. eInvalidIndex at the end.
    Acad::ErrorStatus getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErased = false) const {
        return records_.open(record, mode, openErased);
    }
    /// Moves to a record; eKeyNotFound when the table lacks it, and the position stays.
    Acad::ErrorStatus seek(AcDbObjectId id) { return records_.seek(id); }
    Acad::ErrorStatus seek(const AcDbSymbolTableRecord* record) {
        return record != nullptr ? seek(record->objectId()) : Acad::eNullObjectPointer;
    }

private:
    friend class AcDbSymbolTable;
    template <typename Record>
    friend class AcDbTypedSymbolTableIterator;
    template <typename Record, typename Iterator>
    friend class AcDbTypedSymbolTable;

    zuhost::IdCursor records_;
};

/// A table of named records. Names are compared ignoring case.
class ZUHOST_API AcDbSymbolTable : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTable);

    /// eKeyNotFound when there is no such record.
    Acad::ErrorStatus getIdAt(const ACHAR* name, AcDbObjectId& id, bool getErased = false) const;
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id, bool getErased = false) const {
        return getIdAt(name, id, getErased);
    }
    /// Opens the record too; the caller closes it.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                            bool openErased = false) const;
    [[nodiscard]] bool has(const ACHAR* name) const;
    [[nodiscard]] bool has(AcDbObjectId id) const;
    /// Adds the record, takes ownership of it and leaves it open for write. eDuplicateRecordName when the
    /// name is in use, eWrongObjectType for a record of another table.
    Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
    Acad::ErrorStatus add(AcDbSymbolTableRecord* record);
    /// The caller deletes the iterator.
    Acad::ErrorStatus newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning = true,
                                  bool skipErased = true) const;

protected:
    AcDbSymbolTable() = default;
    [[nodiscard]] std::vector<AcDbObjectId> recordIds() const;

private:
    friend struct zuhost::ObjectAccess;
};

class ZUHOST_API AcDbLayerTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord);
    AcDbLayerTableRecord() = default;

    [[nodiscard]] bool isLocked() const;
    Acad::ErrorStatus setIsLocked(bool locked);
    [[nodiscard]] bool isFrozen() const;
    Acad::ErrorStatus setIsFrozen(bool frozen);
    [[nodiscard]] bool isOff() const;
    Acad::ErrorStatus setIsOff(bool off);
    [[nodiscard]] bool isPlottable() const;
    Acad::ErrorStatus setIsPlottable(bool plottable); ///< eNotApplicable before R2000.
    [[nodiscard]] AcCmColor color() const;
    /// eInvalidInput for by layer and by block; eNotApplicable for red, green and blue in drawings before
    /// R2004, which can't hold them.
    Acad::ErrorStatus setColor(const AcCmColor& color);
    /// 1 to 255; setting others returns eInvalidInput.
    [[nodiscard]] Adesk::UInt16 colorIndex() const;
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 index);
    /// Null when the drawing lacks the layer's linetype.
    [[nodiscard]] AcDbObjectId linetypeObjectId() const;
    /// eNotThatKindOfClass for what is no linetype.
    Acad::ErrorStatus setLinetypeObjectId(AcDbObjectId linetype);
    [[nodiscard]] AcDb::LineWeight lineWeight() const;
    /// eInvalidInput for by layer, by block and undeclared weights; eNotApplicable before R2000.
    Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight);

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

class ZUHOST_API AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbLinetypeTableRecord);
    AcDbLinetypeTableRecord() = default;

    /// The description. The caller of the first form frees it with acutDelString; that of the second form
    /// stays valid until the next call or the object's end.
    Acad::ErrorStatus comments(ACHAR*& text) const;
    Acad::ErrorStatus comments(const ACHAR*& text) const;
    Acad::ErrorStatus setComments(const ACHAR* text);
    [[nodiscard]] double patternLength() const;
    Acad::ErrorStatus setPatternLength(double length);
    [[nodiscard]] int numDashes() const;
    /// Shortens the pattern, or extends it by dashes of length 0; eInvalidInput for negative numbers.
    Acad::ErrorStatus setNumDashes(int count);
    /// Lengths of dashes (positive), gaps (negative) and dots (0), in drawing units; 0 for an index out of
    /// range, eInvalidIndex when setting one.
    [[nodiscard]] double dashLengthAt(int index) const;
    Acad::ErrorStatus setDashLengthAt(int index, double length);

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
    /// Returns the place of each dash in the records.
    [[nodiscard]] std::vector<std::size_t> dashPlaces() const;
};

class ZUHOST_API AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord);
    AcDbTextStyleTableRecord() = default;

    /// Names of the fonts' files. The caller of the first form frees them with acutDelString; those of the
    /// second form stay valid until the next call or the object's end.
    Acad::ErrorStatus fileName(ACHAR*& name) const;
    Acad::ErrorStatus fileName(const ACHAR*& name) const;
    Acad::ErrorStatus setFileName(const ACHAR* name);
    Acad::ErrorStatus bigFontFileName(ACHAR*& name) const;
    Acad::ErrorStatus bigFontFileName(const ACHAR*& name) const;
    Acad::ErrorStatus setBigFontFileName(const ACHAR* name);
    [[nodiscard]] double textSize() const;
    Acad::ErrorStatus setTextSize(double size);
    [[nodiscard]] double xScale() const;
    Acad::ErrorStatus setXScale(double factor);
    /// In radians.
    [[nodiscard]] double obliquingAngle() const;
    Acad::ErrorStatus setObliquingAngle(double angle);
    [[nodiscard]] bool isVertical() const { return hasFlag(4); }
    Acad::ErrorStatus setIsVertical(bool vertical) { return setFlag(4, vertical); }

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

class ZUHOST_API AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbRegAppTableRecord);
    AcDbRegAppTableRecord() = default;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

/// Only the name is modelled; the rest is saved as it was read.
class ZUHOST_API AcDbDimStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbDimStyleTableRecord);
    AcDbDimStyleTableRecord() = default;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

/// Iterates over the entities of a block in drawing order.
class AcDbBlockTableRecordIterator {
public:
    void start(bool atBeginning = true, bool skipErased = true) { entities_.start(atBeginning, skipErased); }
    [[nodiscard]] bool done() const { return entities_.done(); }
    void step(bool forward = true, bool skipErased = true) { entities_.step(forward, skipErased); }
    /// eInvalidIndex at the end.
    Acad::ErrorStatus getEntityId(AcDbObjectId& id) const { return entities_.getId(id); }
    /// Opens the entity; the caller closes it. eInvalidIndex at the end.
    Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErased = false) const {
        return entities_.open(entity, mode, openErased);
    }
    /// Moves to an entity; eKeyNotFound when the block lacks it, and the position stays.
    Acad::ErrorStatus seek(AcDbObjectId id) { return entities_.seek(id); }
    Acad::ErrorStatus seek(const AcDbEntity* entity) {
        return entity != nullptr ? seek(entity->objectId()) : Acad::eNullObjectPointer;
    }
    [[nodiscard]] AcDbObjectId blockTableRecord() const { return block_; }

private:
    friend class AcDbBlockTableRecord;
    AcDbBlockTableRecordIterator(AcDbObjectId block, std::vector<AcDbObjectId> entities)
        : block_(block), entities_(std::move(entities)) {}

    AcDbObjectId block_;
    zuhost::IdCursor entities_;
};

/// The definition of a block, or model or paper space.
class ZUHOST_API AcDbBlockTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord);
    AcDbBlockTableRecord() = default;

    /// The base point. It can be set before the record is added to the table.
    [[nodiscard]] AcGePoint3d origin() const;
    Acad::ErrorStatus setOrigin(const AcGePoint3d& origin);
    [[nodiscard]] bool isLayout() const;
    [[nodiscard]] bool isAnonymous() const;
    [[nodiscard]] bool isFromExternalReference() const;
    [[nodiscard]] bool isFromOverlayReference() const;
    /// Returns true when the block holds an attribute definition that is not erased.
    [[nodiscard]] bool hasAttributeDefinitions() const;
    /// The description. The caller of the first form frees it with acutDelString; that of the second form
    /// stays valid until the next call or the object's end.
    Acad::ErrorStatus comments(ACHAR*& text) const;
    Acad::ErrorStatus comments(const ACHAR*& text) const;
    Acad::ErrorStatus setComments(const ACHAR* text);
    [[nodiscard]] bool explodable() const;
    Acad::ErrorStatus setExplodable(bool explodable);
    /// Returns the references to the block in drawing order, also those within other blocks; erased ones are
    /// skipped. `directOnly` false is not modelled: eNotImplementedYet.
    Acad::ErrorStatus getBlockReferenceIds(AcDbObjectIdArray& ids, bool directOnly = true,
                                           bool forceValidity = false) const;

    /// Appends the entity, takes ownership of it and leaves it open for write; adds a missing layer.
    /// eNotInDatabase when the record is in no table yet; eNotApplicable, with the entity still the caller's,
    /// when drawings of this version have no such entity (R12: AcDbPolyline, AcDbMText, AcDbEllipse).
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
    /// The caller deletes the iterator.
    Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning = true,
                                  bool skipErased = true) const;

protected:
    void subAppended() override;

private:
    friend struct zuhost::ObjectAccess;
    /// Returns the block's entities in drawing order, without vertices and attributes, which belong to their
    /// entities.
    [[nodiscard]] std::vector<AcDbObjectId> entityIds(bool skipErased = true) const;
    [[nodiscard]] zuhost::TagList newRecords() const override;
    [[nodiscard]] AcDbObject* head() const;
    [[nodiscard]] std::int64_t headFlags() const;
    template <typename Change>
    Acad::ErrorStatus changeHead(Change change);

    std::unique_ptr<AcGePoint3d> originToCome_; ///< Set before the record is in a table.
    std::unique_ptr<std::wstring> commentsToCome_;
};

/// Names of model and paper space in the block table.
inline constexpr const ACHAR* ACDB_MODEL_SPACE = L"*Model_Space";
inline constexpr const ACHAR* ACDB_PAPER_SPACE = L"*Paper_Space";

/// An iterator over records of one class.
template <typename Record>
class AcDbTypedSymbolTableIterator : public AcDbSymbolTableIterator {
public:
    using AcDbSymbolTableIterator::getRecord;
    Acad::ErrorStatus getRecord(Record*& record, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErased = false) const {
        return records_.open(record, mode, openErased);
    }
};

/// A table whose records are of one class.
template <typename Record, typename Iterator>
class AcDbTypedSymbolTable : public AcDbSymbolTable {
public:
    using AcDbSymbolTable::getAt;
    /// As above, and opens the record; the caller closes it.
    Acad::ErrorStatus getAt(const ACHAR* name, Record*& record, AcDb::OpenMode mode,
                            bool openErased = false) const {
        record = nullptr;
        AcDbObjectId id;
        const Acad::ErrorStatus status = getIdAt(name, id, openErased);
        return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;
    }
    using AcDbSymbolTable::newIterator;
    Acad::ErrorStatus newIterator(Iterator*& iterator, bool atBeginning = true,
                                  bool skipErased = true) const {
        iterator = new Iterator;
        iterator->records_ = zuhost::IdCursor(recordIds());
        iterator->start(atBeginning, skipErased);
        return Acad::eOk;
    }
};

class AcDbBlockTableIterator : public AcDbTypedSymbolTableIterator<AcDbBlockTableRecord> {};
class AcDbLayerTableIterator : public AcDbTypedSymbolTableIterator<AcDbLayerTableRecord> {};
class AcDbLinetypeTableIterator : public AcDbTypedSymbolTableIterator<AcDbLinetypeTableRecord> {};
class AcDbTextStyleTableIterator : public AcDbTypedSymbolTableIterator<AcDbTextStyleTableRecord> {};
class AcDbRegAppTableIterator : public AcDbTypedSymbolTableIterator<AcDbRegAppTableRecord> {};
class AcDbDimStyleTableIterator : public AcDbTypedSymbolTableIterator<AcDbDimStyleTableRecord> {};

class ZUHOST_API AcDbBlockTable : public AcDbTypedSymbolTable<AcDbBlockTableRecord, AcDbBlockTableIterator> {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTable);
};
class ZUHOST_API AcDbLayerTable : public AcDbTypedSymbolTable<AcDbLayerTableRecord, AcDbLayerTableIterator> {
public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTable);
};
class ZUHOST_API AcDbLinetypeTable
    : public AcDbTypedSymbolTable<AcDbLinetypeTableRecord, AcDbLinetypeTableIterator> {
public:
    ACRX_DECLARE_MEMBERS(AcDbLinetypeTable);
};
class ZUHOST_API AcDbTextStyleTable
    : public AcDbTypedSymbolTable<AcDbTextStyleTableRecord, AcDbTextStyleTableIterator> {
public:
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTable);
};
class ZUHOST_API AcDbRegAppTable
    : public AcDbTypedSymbolTable<AcDbRegAppTableRecord, AcDbRegAppTableIterator> {
public:
    ACRX_DECLARE_MEMBERS(AcDbRegAppTable);
};
class ZUHOST_API AcDbDimStyleTable
    : public AcDbTypedSymbolTable<AcDbDimStyleTableRecord, AcDbDimStyleTableIterator> {
public:
    ACRX_DECLARE_MEMBERS(AcDbDimStyleTable);
};
