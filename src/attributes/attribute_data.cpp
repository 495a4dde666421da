#include <zucomn/attributes.h>

#include "attribute_rows.h"

#include <arxutil.h>
#include <dbmain.h>
#include <dbobjptr.h>

#include <memory>

ACRX_CONS_DEFINE_MEMBERS(CAttributeData, AcRxObject)

namespace {

/// Registers the class when the library is loaded, so that it is found by name.
[[maybe_unused]] const AcRxClass* const registeredClass = CAttributeData::desc();

bool clearsInMode(int mode) {
    return mode == 0 || mode == 2;
}

} // namespace

void zu::deleteStrings(CPtrArray& array) {
    for (int i = array.GetUpperBound(); i >= 0; --i)
        delete &stringsAt(array, i);
    array.RemoveAll();
}

CAttributeData::CAttributeData() = default;

CAttributeData::~CAttributeData() {
    DeleteCPtrArray2(m_entities);
}

void CAttributeData::InitData(int mode) {
    if (clearsInMode(mode))
        DeleteCPtrArray2(m_entities);
}

void CAttributeData::FreeData(int mode) {
    InitData(mode);
}

void CAttributeData::FreeData3(CPtrArray& lists) {
    zu::deleteStrings(lists);
}

int CAttributeData::WriteDataFree(CPtrArray& lists) {
    zu::deleteStrings(lists);
    return 0;
}

void CAttributeData::DeleteCPtrArray1(CPtrArray& table) {
    zu::deleteStrings(table);
}

void CAttributeData::DeleteCPtrArray2(CPtrArray& tables) {
    for (int i = tables.GetUpperBound(); i >= 0; --i) {
        CPtrArray* const table = &zu::tableAt(tables, i);
        DeleteCPtrArray1(*table);
        delete table;
    }
    tables.RemoveAll();
}

void CAttributeData::ExchangeArrangeData(CPtrArray& /*from*/, CPtrArray& /*to*/) {}

int CAttributeData::ReadData(const AcDbObjectId& entity) {
    FreeData(0);
    ObjectIDReadData(entity);
    return 0;
}

int CAttributeData::ReadData(const AcArray<AcDbObjectId>& entities) {
    FreeData(0);
    for (const AcDbObjectId entity : entities)
        ObjectIDReadData(entity);
    return 0;
}

int CAttributeData::ReadData3(const AcDbObjectId& entity, CPtrArray* out) {
    FreeData(0);
    return ObjectIDReadData3(entity, out);
}

int CAttributeData::ObjectIDReadData(AcDbObjectId entity) {
    CStringArray list;
    const int status = GetExtensionElementData(entity, list);
    SetAttributeDataArray2(list);
    return status;
}

int CAttributeData::ObjectIDReadData3(AcDbObjectId entity, CPtrArray* out) {
    if (out == nullptr)
        return -1;
    auto list = std::make_unique<CStringArray>();
    const int status = GetExtensionElementData(entity, *list);
    out->Add(list.release());
    return status;
}

int CAttributeData::GetExtensionElementData(AcDbObjectId entity, CStringArray& out) {
    const AcDbObjectPointer<AcDbObject> object(entity, AcDb::kForRead, true);
    if (object.openStatus() != Acad::eOk)
        return -1;
    return ApiComn_extractAttributesArray(object.object(), zu::kAttributeApplication, out) != 0 ? 1 : 0;
}

CString CAttributeData::GetValueAttID(AcDbObjectId entity, const wchar_t* key) {
    CStringArray list;
    return GetExtensionElementData(entity, list) == 0 ? GetValueAtt(&list, key) : CString();
}

int CAttributeData::SetAttributeData(AcDbObjectId entity, const CStringArray& list) {
    return ApiComn_appendAttributesArray(entity, zu::kAttributeApplication, list);
}

int CAttributeData::WriteData(const CPtrArray& tables, CPtrArray& out) {
    for (int i = 0; i < tables.GetSize(); ++i) {
        auto list = std::make_unique<CStringArray>();
        SetAttributeDataArray1(zu::tableAt(tables, i), *list);
        out.Add(list.release());
    }
    return 0;
}

int CAttributeData::SetAttributeDataArray1(const CPtrArray& table, CStringArray& list) {
    list.RemoveAll();
    if (table.IsEmpty())
        return 0;
    zu::AttributeRecord record{zu::stringsAt(table, 0)[0], zu::stringsAt(table, 0)[1], {}};
    for (int i = 0; i < table.GetSize(); ++i) {
        const CStringArray& row = zu::stringsAt(table, i);
        zu::ItemFields& item = record.items.emplace_back();
        for (int field = 0; field < zu::kStoredFields; ++field)
            item[static_cast<std::size_t>(field)] = row[zu::kFirstStoredColumn + field];
    }
    for (const CString& text : zu::encodeRecord(record))
        list.Add(text);
    return 0;
}

int CAttributeData::SetAttributeDataArray2(const CStringArray& list) {
    const auto record = zu::decodeRecord(list);
    if (!record)
        return 0;
    auto table = std::make_unique<CPtrArray>();
    for (const zu::ItemFields& item : record->items) {
        CStringArray fields;
        for (const CString& field : item)
            fields.Add(field);
        auto row = std::make_unique<CStringArray>();
        SetArrayData(*row, record->first, record->second, fields);
        table->Add(row.release());
    }
    m_entities.Add(table.release());
    return 0;
}

void CAttributeData::SetArrayData(CStringArray& row, const CString& first, const CString& second,
                                  const CStringArray& fields) {
    row.RemoveAll();
    row.SetSize(zu::kRowColumns);
    row[0] = first;
    row[1] = second;
    for (int field = 0; field < zu::kStoredFields && field < fields.GetSize(); ++field)
        row[zu::kFirstStoredColumn + field] = fields[field];
    row[zu::kNameColumn] = GetItemName(row[zu::kIdColumn]);
}
