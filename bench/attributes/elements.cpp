#include "elements.h"

#include <arxutil.h>
#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

#include <array>

namespace {

constexpr std::array kLayers{L"DUCT", L"PIPE", L"CABLE", L"EQUIPMENT", L"FIXED"};

template <typename Table, typename Record>
Record* addRecord(AcDbDatabase& database, const wchar_t* name) {
    Table* table = nullptr;
    database.getSymbolTable(table, AcDb::kForWrite);
    auto* const record = new Record;
    record->setName(name);
    table->add(record);
    table->close();
    return record;
}

void setRecord(AcDbObjectId element, int number) {
    CStringArray record;
    CString text;
    text.Format(L"%d|系統%d|空調|", Elements::kAttributes, number % 7);
    record.Add(text);
    for (int i = 1; i <= Elements::kAttributes; ++i) {
        text.Format(L"S%d|値%d|0|1|%d|1|", i, number % i, i);
        record.Add(text);
    }
    ApiComn_appendAttributesArray(element, L"ZU_ATTR", record);
}

} // namespace

Elements::Elements(int count) {
    AcDbDatabase drawn;
    drawn.disableUndoRecording(true);
    for (const wchar_t* const layer : kLayers)
        addRecord<AcDbLayerTable, AcDbLayerTableRecord>(drawn, layer)->close();
    auto* const block = addRecord<AcDbBlockTable, AcDbBlockTableRecord>(drawn, L"RT-1");
    const AcDbObjectId part = block->objectId();
    block->close();
    AcDbObjectId space;
    {
        const AcDbObjectPointer<AcDbBlockTable> table(drawn.blockTableId());
        table->getAt(ACDB_MODEL_SPACE, space);
    }
    const AcDbObjectPointer<AcDbBlockTableRecord> record(space, AcDb::kForWrite);
    for (int i = 0; i < count; ++i) {
        auto* const reference = new AcDbBlockReference({500.0 * i, 0, 0}, part);
        AcDbObjectId id;
        record->appendAcDbEntity(id, reference);
        reference->setLayer(kLayers[static_cast<std::size_t>(i) % kLayers.size()]);
        reference->close();
        setRecord(id, i);
        handles_.push_back(id.handle());
    }
    bytes_ = drawn.dxfOutBytes(false);
    reopen();
}

void Elements::reopen() {
    database_ = std::make_unique<AcDbDatabase>(false);
    database_->dxfInBytes(bytes_, L"elements.dxf");
    ids_.clear();
    for (const AcDbHandle& handle : handles_) {
        AcDbObjectId id;
        database_->getAcDbObjectId(id, false, handle);
        ids_.push_back(id);
    }
}
