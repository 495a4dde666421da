#include "dbsymtb.h"

#include "database_core.h"

#include <algorithm>

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject)
ACRX_DEFINE_MEMBERS_WITH(AcDbSymbolTable, AcDbObject, &zuhost::makeSymbolTable)
ACRX_CONS_DEFINE_MEMBERS(AcDbBlockTable, AcDbSymbolTable)
ACRX_CONS_DEFINE_MEMBERS(AcDbLayerTable, AcDbSymbolTable)
ACRX_CONS_DEFINE_MEMBERS(AcDbLinetypeTable, AcDbSymbolTable)
ACRX_CONS_DEFINE_MEMBERS(AcDbTextStyleTable, AcDbSymbolTable)
ACRX_CONS_DEFINE_MEMBERS(AcDbRegAppTable, AcDbSymbolTable)

AcRxObject* zuhost::makeSymbolTable() {
    class Table : public AcDbSymbolTable {};
    return new Table;
}

// ---- records

zuhost::TagList AcDbSymbolTableRecord::namedRecord(std::string_view type, std::string_view marker) {
    zuhost::TagList records = recordsOf(type, {"AcDbSymbolTableRecord", marker});
    records.add(2, "");
    records.add(70, "0");
    return records;
}

std::wstring AcDbSymbolTableRecord::name() const {
    return textTag({}, 2);
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& name) const {
    name_ = this->name();
    name = name_.c_str();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* name) {
    if (name == nullptr)
        return Acad::eInvalidInput;
    AcDbStub* const table = ownerId();
    if (core() != nullptr && table != nullptr) {
        const AcDbStub* const known = core()->findRecord(*table, name, false);
        if (known != nullptr && known != static_cast<AcDbStub*>(objectId()))
            return Acad::eDuplicateRecordName;
    }
    const Acad::ErrorStatus status = setTextTag({}, 2, name);
    if (status == Acad::eOk && table != nullptr)
        core()->invalidateNames(table);
    return status;
}

// ---- tables

AcDbSymbolTableIterator::AcDbSymbolTableIterator(std::vector<AcDbObjectId> ids, bool skipErased)
    : ids_(std::move(ids)), skipErased_(skipErased) {
    skip();
}

void AcDbSymbolTableIterator::start() {
    at_ = 0;
    skip();
}

void AcDbSymbolTableIterator::step() {
    ++at_;
    skip();
}

void AcDbSymbolTableIterator::skip() {
    while (skipErased_ && at_ < ids_.size() && ids_[at_].isErased())
        ++at_;
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecordId(AcDbObjectId& id) const {
    if (done())
        return Acad::eInvalidIndex;
    id = ids_[at_];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::getIdAt(const ACHAR* name, AcDbObjectId& id, bool getErased) const {
    if (name == nullptr)
        return Acad::eInvalidInput;
    AcDbStub* const found = core()->findRecord(*static_cast<AcDbStub*>(objectId()), name, getErased);
    if (found == nullptr)
        return Acad::eKeyNotFound;
    id = found;
    return Acad::eOk;
}

bool AcDbSymbolTable::has(const ACHAR* name) const {
    AcDbObjectId id;
    return getIdAt(name, id) == Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record) {
    if (record == nullptr)
        return Acad::eNullObjectPointer;
    if (record->database() != nullptr)
        return Acad::eAlreadyInDb;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    const std::wstring name = record->name();
    if (name.empty())
        return Acad::eInvalidInput;
    if (has(name.c_str()))
        return Acad::eDuplicateRecordName;
    zuhost::DatabaseCore& database = *core();
    AcDbStub* const table = objectId();
    id = database.adopt(record, database.document->container(zuhost::Container::Kind::table, tableName()),
                        table);
    if (AcDbBlockTableRecord::cast(record) != nullptr) {
        database.document->appendBlock(database.document->encode(name), id);
        database.invalidateBlocks();
    }
    database.invalidateNames(table);
    return Acad::eOk;
}

std::string AcDbSymbolTable::tableName() const {
    return std::string(tags().text(2).value_or(""));
}

std::vector<AcDbObjectId> AcDbSymbolTable::recordIds() const {
    const std::vector<AcDbStub*> records = core()->records(*static_cast<AcDbStub*>(objectId()));
    return {records.begin(), records.end()};
}

Acad::ErrorStatus AcDbSymbolTable::newIterator(AcDbSymbolTableIterator*& iterator, bool /*atBeginning*/,
                                               bool skipErased) const {
    iterator = new AcDbSymbolTableIterator(recordIds(), skipErased);
    return Acad::eOk;
}
