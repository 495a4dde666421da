#include "elements.h"

#include <arxutil.h>
#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

#include <array>
#include <memory>
#include <stdexcept>

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
    text.Format(L"%d|系統%d|空調|", kAttributes, number % 7);
    record.Add(text);
    for (int i = 1; i <= kAttributes; ++i) {
        text.Format(L"S%d|値%d|0|1|%d|1|", i, number % i, i);
        record.Add(text);
    }
    ApiComn_appendAttributesArray(element, L"ZU_ATTR", record);
}

AcDbObjectId modelSpace(AcDbDatabase& database) {
    const AcDbObjectPointer<AcDbBlockTable> table(database.blockTableId());
    AcDbObjectId id;
    table->getAt(ACDB_MODEL_SPACE, id);
    return id;
}

} // namespace

void writeElements(const std::wstring& path, int count) {
    AcDbDatabase drawn;
    drawn.disableUndoRecording(true);
    for (const wchar_t* const layer : kLayers)
        addRecord<AcDbLayerTable, AcDbLayerTableRecord>(drawn, layer)->close();
    auto* const block = addRecord<AcDbBlockTable, AcDbBlockTableRecord>(drawn, L"RT-1");
    const AcDbObjectId part = block->objectId();
    block->close();
    const AcDbObjectPointer<AcDbBlockTableRecord> space(modelSpace(drawn), AcDb::kForWrite);
    for (int i = 0; i < count; ++i) {
        auto* const reference = new AcDbBlockReference({500.0 * i, 0, 0}, part);
        AcDbObjectId id;
        space->appendAcDbEntity(id, reference);
        reference->setLayer(kLayers[static_cast<std::size_t>(i) % kLayers.size()]);
        reference->close();
        setRecord(id, i);
    }
    if (drawn.dxfOut(path.c_str()) != Acad::eOk)
        throw std::runtime_error("cannot write the drawing");
}

Elements::Elements(const std::wstring& path) {
    if (database.dxfIn(path.c_str()) != Acad::eOk)
        throw std::runtime_error("cannot open the drawing");
    const AcDbObjectPointer<AcDbBlockTableRecord> space(modelSpace(database));
    AcDbBlockTableRecordIterator* made = nullptr;
    space->newIterator(made);
    const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(made);
    for (; !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        iterator->getEntityId(id);
        ids.push_back(id);
    }
}
