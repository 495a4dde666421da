#pragma once

#include "dbmain.h"

/// An entry of a symbol table.
class AcDbSymbolTableRecord : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord);

    /// Returns the name, which stays valid until the next call or the object's end.
    Acad::ErrorStatus getName(const ACHAR*& name) const;
    [[nodiscard]] std::wstring name() const;
    /// eDuplicateRecordName when another record of the table has the name.
    Acad::ErrorStatus setName(const ACHAR* name);

protected:
    AcDbSymbolTableRecord() = default;
    /// Returns the first records of the type, with an empty name and no flags.
    [[nodiscard]] static zuhost::TagList namedRecord(std::string_view type, std::string_view marker);

private:
    mutable std::wstring name_;
};

/// Iterates over the records of a symbol table in their order.
class AcDbSymbolTableIterator {
public:
    explicit AcDbSymbolTableIterator(std::vector<AcDbObjectId> ids, bool skipErased = true);

    void start();
    [[nodiscard]] bool done() const { return at_ >= ids_.size(); }
    void step();
    Acad::ErrorStatus getRecordId(AcDbObjectId& id) const;

private:
    void skip();

    std::vector<AcDbObjectId> ids_;
    std::size_t at_ = 0;
    bool skipErased_;
};

/// A table of named records. Names are compared ignoring case.
class AcDbSymbolTable : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTable);

    /// eKeyNotFound when there is no such record.
    Acad::ErrorStatus getIdAt(const ACHAR* name, AcDbObjectId& id, bool getErased = false) const;
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id, bool getErased = false) const {
        return getIdAt(name, id, getErased);
    }
    [[nodiscard]] bool has(const ACHAR* name) const;
    /// Adds the record, takes ownership of it and leaves it open for write. eDuplicateRecordName when the
    /// name is in use.
    Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
    /// The caller deletes the iterator.
    Acad::ErrorStatus newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning = true,
                                  bool skipErased = true) const;
    [[nodiscard]] std::vector<AcDbObjectId> recordIds() const;

protected:
    AcDbSymbolTable() = default;

private:
    /// Returns the table's name in drawings, as "LAYER".
    [[nodiscard]] std::string tableName() const;
};

class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord);
    AcDbLayerTableRecord() = default;

    [[nodiscard]] bool isLocked() const;
    Acad::ErrorStatus setIsLocked(bool locked);
    [[nodiscard]] bool isFrozen() const;
    Acad::ErrorStatus setIsFrozen(bool frozen);
    [[nodiscard]] bool isOff() const;
    /// 1 to 255; setting others returns eInvalidInput.
    [[nodiscard]] Adesk::UInt16 colorIndex() const;
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 index);
    [[nodiscard]] std::wstring linetypeName() const;
    [[nodiscard]] AcDb::LineWeight lineWeight() const;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
    [[nodiscard]] bool flag(std::int64_t bit) const;
    Acad::ErrorStatus setFlag(std::int64_t bit, bool on);
};

class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbLinetypeTableRecord);
    AcDbLinetypeTableRecord() = default;

    [[nodiscard]] std::wstring description() const;
    [[nodiscard]] double patternLength() const;
    /// Lengths of dashes (positive), gaps (negative) and dots (0), in drawing units.
    [[nodiscard]] std::vector<double> dashes() const;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord);
    AcDbTextStyleTableRecord() = default;

    [[nodiscard]] std::wstring fileName() const;
    [[nodiscard]] std::wstring bigFontFileName() const;
    [[nodiscard]] double textSize() const;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

class AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbRegAppTableRecord);
    AcDbRegAppTableRecord() = default;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

/// Iterates over the entities of a block in drawing order.
class AcDbBlockTableRecordIterator {
public:
    explicit AcDbBlockTableRecordIterator(std::vector<AcDbObjectId> ids) : ids_(std::move(ids)) {}

    void start() { at_ = 0; }
    [[nodiscard]] bool done() const { return at_ >= ids_.size(); }
    void step() { ++at_; }
    Acad::ErrorStatus getEntityId(AcDbObjectId& id) const;

private:
    std::vector<AcDbObjectId> ids_;
    std::size_t at_ = 0;
};

/// The definition of a block, or model or paper space.
class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord);
    AcDbBlockTableRecord() = default;

    /// The base point.
    [[nodiscard]] AcGePoint3d origin() const;
    Acad::ErrorStatus setOrigin(const AcGePoint3d& origin);
    [[nodiscard]] bool isLayout() const;
    /// Appends the entity, takes ownership of it and leaves it open for write. eNotApplicable, with the
    /// entity still the caller's, when drawings of this version have no such entity (R12: AcDbPolyline,
    /// AcDbMText, AcDbEllipse).
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
    /// The caller deletes the iterator.
    Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;
    /// Returns the block's entities in drawing order, without vertices and attributes, which belong to their
    /// entities.
    [[nodiscard]] std::vector<AcDbObjectId> entityIds(bool skipErased = true) const;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
};

/// Names of model and paper space in the block table.
inline constexpr const ACHAR* ACDB_MODEL_SPACE = L"*Model_Space";
inline constexpr const ACHAR* ACDB_PAPER_SPACE = L"*Paper_Space";

/// A table whose records are of one class.
template <typename Record>
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
    using AcDbSymbolTable::add;
    Acad::ErrorStatus add(Record* record) {
        AcDbObjectId id;
        return AcDbSymbolTable::add(id, record);
    }
};

class AcDbBlockTable : public AcDbTypedSymbolTable<AcDbBlockTableRecord> {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTable);
};
class AcDbLayerTable : public AcDbTypedSymbolTable<AcDbLayerTableRecord> {
public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTable);
};
class AcDbLinetypeTable : public AcDbTypedSymbolTable<AcDbLinetypeTableRecord> {
public:
    ACRX_DECLARE_MEMBERS(AcDbLinetypeTable);
};
class AcDbTextStyleTable : public AcDbTypedSymbolTable<AcDbTextStyleTableRecord> {
public:
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTable);
};
class AcDbRegAppTable : public AcDbTypedSymbolTable<AcDbRegAppTableRecord> {
public:
    ACRX_DECLARE_MEMBERS(AcDbRegAppTable);
};
