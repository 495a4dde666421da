#include <zucomn/attributes.h>

#include "attribute_rows.h"
#include "attribute_tables.h"

namespace {

CString columnOrEmpty(const CStringArray& record, int column) {
    return column < record.GetSize() ? record[column] : CString();
}

bool hasId(const CStringArray& record, const wchar_t* attributeId) {
    return !record.IsEmpty() && record[0] == attributeId;
}

bool contains(const CStringArray& texts, const CString& text) {
    for (int i = 0; i < texts.GetSize(); ++i)
        if (texts[i] == text)
            return true;
    return false;
}

} // namespace

CString CAttributeData::GetItemName(const CPtrArray& titles, const wchar_t* attributeId) {
    for (int i = 0; i < titles.GetSize(); ++i)
        if (const CStringArray& record = zu::stringsAt(titles, i); hasId(record, attributeId))
            return columnOrEmpty(record, 1);
    return {};
}

CString CAttributeData::GetItemName(const wchar_t* attributeId) {
    return GetItemName(zu::AttributeTables::instance().titles(), attributeId);
}

int CAttributeData::GetItemParameter(const CPtrArray& parameters, const wchar_t* attributeId,
                                     CPtrArray& records) {
    const int before = records.GetSize();
    for (int i = 0; i < parameters.GetSize(); ++i)
        if (hasId(zu::stringsAt(parameters, i), attributeId))
            records.Add(parameters[i]);
    return records.GetSize() - before;
}

int CAttributeData::GetItemParameter(const wchar_t* attributeId, CPtrArray& records) {
    return GetItemParameter(zu::AttributeTables::instance().parameters(), attributeId, records);
}

int CAttributeData::GetItemParameter2(const wchar_t* attributeId, const wchar_t* kind, CStringArray& texts) {
    CPtrArray records;
    GetItemParameter(attributeId, records);
    const CString wanted(kind);
    const int before = texts.GetSize();
    for (int i = 0; i < records.GetSize(); ++i) {
        const CStringArray& record = zu::stringsAt(records, i);
        const CString text = columnOrEmpty(record, zu::kParameterText);
        if ((wanted.IsEmpty() || columnOrEmpty(record, zu::kParameterKind) == wanted) &&
            !contains(texts, text))
            texts.Add(text);
    }
    return texts.GetSize() - before;
}
