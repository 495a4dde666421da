#pragma once

#include "dbdict.h"
#include "dbsymtb.h"

/// Keeps an object open for a scope: the constructor or `open` opens it, the destructor closes it. An object
/// that is in no database is deleted instead, unless one that is in none either owns it (an entry of a
/// dictionary, a vertex, an attribute).
template <typename T>
class AcDbObjectPointer {
public:
    AcDbObjectPointer() = default;
    explicit AcDbObjectPointer(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false,
                               bool openOnLockedLayer = false) {
        open(id, mode, openErased, openOnLockedLayer);
    }
    /// Acquires an open object, or one that is in no database.
    explicit AcDbObjectPointer(T* object) { hold(object); }
    ~AcDbObjectPointer() { close(); }
    AcDbObjectPointer(const AcDbObjectPointer&) = delete;
    AcDbObjectPointer& operator=(const AcDbObjectPointer&) = delete;
    AcDbObjectPointer(AcDbObjectPointer&& other) noexcept { acquire(other.object_); }
    AcDbObjectPointer& operator=(AcDbObjectPointer&& other) noexcept {
        if (this != &other)
            acquire(other.object_);
        return *this;
    }

    Acad::ErrorStatus open(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false,
                           bool openOnLockedLayer = false) {
        close();
        return status_ = acdbOpenObject(object_, id, mode, openErased, openOnLockedLayer);
    }
    /// Creates a new object that is in no database.
    Acad::ErrorStatus create() {
        close();
        return hold(new T);
    }
    /// Takes over an open object, or one that is in no database, and sets the argument to null.
    Acad::ErrorStatus acquire(T*& object) {
        close();
        T* const acquired = object;
        object = nullptr;
        return hold(acquired);
    }
    /// Hands the object over, still open; null and eNullObjectPointer when there is none.
    Acad::ErrorStatus release(T*& object) {
        object = object_;
        object_ = nullptr;
        status_ = Acad::eNullObjectPointer;
        if (object == nullptr)
            return Acad::eNullObjectPointer;
        object->isHeld_ = false;
        return Acad::eOk;
    }
    Acad::ErrorStatus close() {
        T* object = nullptr;
        if (release(object) != Acad::eOk)
            return Acad::eNullObjectPointer;
        if (object->database() != nullptr)
            return object->close();
        if (!object->isPending_)
            delete object;
        return Acad::eOk;
    }

    [[nodiscard]] Acad::ErrorStatus openStatus() const { return status_; }
    [[nodiscard]] T* object() const { return object_; }
    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }
    operator T*() const { return object_; }

protected:
    /// Takes over what `open` opened.
    template <typename Open>
    Acad::ErrorStatus openWith(Open open) {
        close();
        object_ = nullptr;
        return status_ = open(object_);
    }

private:
    Acad::ErrorStatus hold(T* object) {
        object_ = object;
        if (object == nullptr)
            return status_ = Acad::eNullObjectPointer;
        object->isHeld_ = object->database() == nullptr;
        return status_ = Acad::eOk;
    }

    T* object_ = nullptr;
    Acad::ErrorStatus status_ = Acad::eNullObjectPointer;
};

/// Keeps a symbol table of a database open.
template <typename Table>
class AcDbSymbolTablePointer : public AcDbObjectPointer<Table> {
public:
    using AcDbObjectPointer<Table>::AcDbObjectPointer;
    using AcDbObjectPointer<Table>::open;
    explicit AcDbSymbolTablePointer(AcDbDatabase* database, AcDb::OpenMode mode = AcDb::kForRead) {
        open(database, mode);
    }
    /// eNullObjectPointer for no database.
    Acad::ErrorStatus open(AcDbDatabase* database, AcDb::OpenMode mode = AcDb::kForRead) {
        return this->openWith([&](Table*& table) {
            return database != nullptr ? database->getSymbolTable(table, mode) : Acad::eNullObjectPointer;
        });
    }
};

/// Keeps a record of a symbol table open, found by its id or its name.
template <typename Record, typename Table>
class AcDbSymbolTableRecordPointer : public AcDbObjectPointer<Record> {
public:
    using AcDbObjectPointer<Record>::AcDbObjectPointer;
    using AcDbObjectPointer<Record>::open;
    AcDbSymbolTableRecordPointer(const ACHAR* name, AcDbDatabase* database,
                                 AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false) {
        open(name, database, mode, openErased);
    }
    /// eNullObjectPointer for no database, eKeyNotFound when it has no such record.
    Acad::ErrorStatus open(const ACHAR* name, AcDbDatabase* database, AcDb::OpenMode mode = AcDb::kForRead,
                           bool openErased = false) {
        return this->openWith([&](Record*& record) {
            const AcDbSymbolTablePointer<Table> table(database);
            return table.openStatus() == Acad::eOk ? table->getAt(name, record, mode, openErased)
                                                   : table.openStatus();
        });
    }
};

using AcDbEntityPointer = AcDbObjectPointer<AcDbEntity>;
using AcDbDictionaryPointer = AcDbObjectPointer<AcDbDictionary>;

using AcDbBlockTablePointer = AcDbSymbolTablePointer<AcDbBlockTable>;
using AcDbLayerTablePointer = AcDbSymbolTablePointer<AcDbLayerTable>;
using AcDbLinetypeTablePointer = AcDbSymbolTablePointer<AcDbLinetypeTable>;
using AcDbTextStyleTablePointer = AcDbSymbolTablePointer<AcDbTextStyleTable>;
using AcDbRegAppTablePointer = AcDbSymbolTablePointer<AcDbRegAppTable>;
using AcDbDimStyleTablePointer = AcDbSymbolTablePointer<AcDbDimStyleTable>;

using AcDbBlockTableRecordPointer = AcDbSymbolTableRecordPointer<AcDbBlockTableRecord, AcDbBlockTable>;
using AcDbLayerTableRecordPointer = AcDbSymbolTableRecordPointer<AcDbLayerTableRecord, AcDbLayerTable>;
using AcDbLinetypeTableRecordPointer =
    AcDbSymbolTableRecordPointer<AcDbLinetypeTableRecord, AcDbLinetypeTable>;
using AcDbTextStyleTableRecordPointer =
    AcDbSymbolTableRecordPointer<AcDbTextStyleTableRecord, AcDbTextStyleTable>;
using AcDbRegAppTableRecordPointer = AcDbSymbolTableRecordPointer<AcDbRegAppTableRecord, AcDbRegAppTable>;
using AcDbDimStyleTableRecordPointer =
    AcDbSymbolTableRecordPointer<AcDbDimStyleTableRecord, AcDbDimStyleTable>;
