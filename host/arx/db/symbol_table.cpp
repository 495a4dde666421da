#include "dbsymtb.h"

#include "color_records.h"
#include "database_core.h"
#include "line_weights.h"
#include "new_text.h"
#include "object_access.h"
#include "renaming.h"

#include <algorithm>

namespace {

AcRxObject* makeSymbolTable() {
    class Table : public AcDbSymbolTable {};
    return new Table;
}

/// Returns whether the value of a layer is one that older drawings lack: true colour, plotting, weight, plot
/// style.
bool isSinceR2000(const zuhost::Tag& tag) {
    return tag.code == zuhost::kTrueColor || tag.code == zuhost::kColorName || tag.code == 290 ||
           tag.code == 370 || tag.code == 390;
}

} // namespace

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject)
ACRX_DEFINE_MEMBERS_WITH(AcDbSymbolTable, AcDbObject, &makeSymbolTable)
ACRX_CONS_DEFINE_MEMBERS(AcDbBlockTable, AcDbSymbolTable)
ACRX_CONS_DEFINE_MEMBERS(AcDbLayerTable, AcDbSymbolTable)
ACRX_CONS_DEFINE_MEMBERS(AcDbLinetypeTable, AcDbSymbolTable)
ACRX_CONS_DEFINE_MEMBERS(AcDbTextStyleTable, AcDbSymbolTable)
ACRX_CONS_DEFINE_MEMBERS(AcDbRegAppTable, AcDbSymbolTable)
ACRX_CONS_DEFINE_MEMBERS(AcDbDimStyleTable, AcDbSymbolTable)

// ---- records

zuhost::TagList AcDbSymbolTableRecord::namedRecord(std::string_view type, std::string_view marker) {
    zuhost::TagList records = recordsOf(type, {"AcDbSymbolTableRecord", marker});
    records.add(2, "");
    records.add(70, "0");
    return records;
}

std::wstring AcDbSymbolTableRecord::nameText() const {
    return textTag({}, 2);
}

const ACHAR* AcDbSymbolTableRecord::kept(std::wstring text) const {
    kept_ = std::move(text);
    return kept_.c_str();
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& name) const {
    name = zuhost::newText(nameText());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& name) const {
    name_ = nameText();
    name = name_.c_str();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(AcString& name) const {
    name = nameText().c_str();
    return Acad::eOk;
}

bool AcDbSymbolTableRecord::hasFlag(std::int64_t bit) const {
    return (integerTag({}, 70, 0) & bit) != 0;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setFlag(std::int64_t bit, bool on) {
    const std::int64_t flags = integerTag({}, 70, 0);
    return setIntegerTag({}, 70, on ? flags | bit : flags & ~bit);
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* name) {
    const bool isBlock = AcDbBlockTableRecord::cast(this) != nullptr;
    if (name == nullptr || !zuhost::isRecordName(name, isBlock))
        return Acad::eInvalidInput;
    if (core() == nullptr)
        return setTextTag({}, 2, name);
    // Blocks of drawings before R13 are in no table of their own.
    AcDbStub* const table = isBlock ? core()->tableHead("BLOCK_RECORD") : static_cast<AcDbStub*>(ownerId());
    if (table == nullptr)
        return setTextTag({}, 2, name);
    const AcDbStub* const known = core()->findRecord(*table, name, false);
    if (known != nullptr && known != static_cast<AcDbStub*>(objectId()))
        return Acad::eDuplicateRecordName;
    const std::wstring before = nameText();
    const Acad::ErrorStatus status = setTextTag({}, 2, name);
    if (status != Acad::eOk || before == name)
        return status;
    core()->invalidateNames(table);
    core()->invalidateLocks();
    const std::string type(core()->tags(*table).text(2).value_or(""));
    zuhost::renameReferences(*core(), type, before, name);
    return status;
}

// ---- tables

Acad::ErrorStatus AcDbSymbolTable::getIdAt(const ACHAR* name, AcDbObjectId& id, bool getErased) const {
    if (name == nullptr)
        return Acad::eInvalidInput;
    if (core() == nullptr)
        return Acad::eNotInDatabase;
    AcDbStub* const found = core()->findRecord(*static_cast<AcDbStub*>(objectId()), name, getErased);
    if (found == nullptr)
        return Acad::eKeyNotFound;
    id = found;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbSymbolTableRecord*& record,
                                         AcDb::OpenMode mode, bool openErased) const {
    record = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus status = getIdAt(name, id, openErased);
    return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;
}

bool AcDbSymbolTable::has(const ACHAR* name) const {
    AcDbObjectId id;
    return getIdAt(name, id) == Acad::eOk;
}

bool AcDbSymbolTable::has(AcDbObjectId id) const {
    const std::vector<AcDbObjectId> ids = recordIds();
    return !id.isErased() && std::find(ids.begin(), ids.end(), id) != ids.end();
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record) {
    AcDbObjectId id;
    return add(id, record);
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record) {
    if (record == nullptr)
        return Acad::eNullObjectPointer;
    if (record->database() != nullptr)
        return Acad::eAlreadyInDb;
    if (core() == nullptr)
        return Acad::eNotInDatabase;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (tags().text(2) != zuhost::ObjectAccess::tags(*record).text(0))
        return Acad::eWrongObjectType;
    const std::wstring name = record->nameText();
    if (name.empty())
        return Acad::eInvalidInput;
    if (has(name.c_str()))
        return Acad::eDuplicateRecordName;
    core()->addRecord(*static_cast<AcDbStub*>(objectId()), *record);
    id = record->objectId();
    return Acad::eOk;
}

void zuhost::DatabaseCore::addRecord(AcDbStub& table, AcDbSymbolTableRecord& record) {
    const std::string tableName(tags(table).text(2).value_or(""));
    Container& target = document->container(Container::Kind::table, tableName);
    const std::string name = document->encode(ObjectAccess::name(record));
    const bool isBlock = AcDbBlockTableRecord::cast(&record) != nullptr;
    const bool isOldLayer =
        AcDbLayerTableRecord::cast(&record) != nullptr && document->version() < kLineWeightVersion;
    if (isOldLayer && ObjectAccess::assertWriteEnabled(record) == Acad::eOk) {
        TagList& records = ObjectAccess::changingTags(record);
        records.eraseIf(records.all(), isSinceR2000);
    }
    adopt(&record, target, &table, [&](AcDbStub& stub) {
        if (isBlock)
            indexBlock(document->appendBlock(name, &stub));
        indexName(table, stub);
    });
}

std::vector<AcDbObjectId> AcDbSymbolTable::recordIds() const {
    if (core() == nullptr)
        return {};
    const std::vector<AcDbStub*> records = core()->records(*static_cast<AcDbStub*>(objectId()));
    return {records.begin(), records.end()};
}

Acad::ErrorStatus AcDbSymbolTable::newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning,
                                               bool skipErased) const {
    iterator = new AcDbSymbolTableIterator;
    iterator->records_ = zuhost::IdCursor(recordIds());
    iterator->start(atBeginning, skipErased);
    return Acad::eOk;
}
