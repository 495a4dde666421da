#include <zucomn/attributes.h>

#include "attribute_rows.h"

#include <memory>

int CAttributeData::AddCommonDataSearch(const CPtrArray& table, const wchar_t* attributeId) {
    for (int i = 0; i < table.GetSize(); ++i)
        if (zu::stringsAt(table, i)[zu::kIdColumn] == attributeId)
            return i;
    return -1;
}

int CAttributeData::CommonItemSearch(const CPtrArray& table, const wchar_t* attributeId) {
    return AddCommonDataSearch(table, attributeId);
}

bool CAttributeData::CheckCommon(const wchar_t* attributeId) const {
    for (int i = 0; i < m_entities.GetSize(); ++i)
        if (CommonItemSearch(zu::tableAt(m_entities, i), attributeId) < 0)
            return false;
    return !m_entities.IsEmpty();
}

void CAttributeData::CommonItemCopy(const CStringArray& from, CStringArray& to) {
    to.Copy(from);
}

CStringArray* CAttributeData::CommonItemCreate(const CStringArray& row) {
    auto copy = std::make_unique<CStringArray>();
    CommonItemCopy(row, *copy);
    return copy.release();
}

int CAttributeData::AddCommon(CPtrArray& common) {
    DeleteCPtrArray1(common);
    if (m_entities.IsEmpty())
        return 0;
    const CPtrArray& first = zu::tableAt(m_entities, 0);
    for (int i = 0; i < first.GetSize(); ++i)
        if (const CStringArray& row = zu::stringsAt(first, i);
            AddCommonDataSearch(common, row[zu::kIdColumn]) < 0)
            common.Add(CommonItemCreate(row));
    for (int i = 1; i < m_entities.GetSize(); ++i)
        AddCommonData(common, zu::tableAt(m_entities, i));
    return 0;
}

void CAttributeData::AddCommonData(CPtrArray& common, const CPtrArray& table) {
    for (int i = common.GetUpperBound(); i >= 0; --i) {
        CStringArray& row = zu::stringsAt(common, i);
        const int index = AddCommonDataSearch(table, row[zu::kIdColumn]);
        if (index < 0) {
            delete &row;
            common.RemoveAt(i);
            continue;
        }
        if (!(zu::stringsAt(table, index)[zu::kValueColumn] == row[zu::kValueColumn]))
            row[zu::kValueColumn] = zu::kVarious;
    }
}

void CAttributeData::SetCommonData(const CPtrArray& common) {
    for (int i = 0; i < common.GetSize(); ++i) {
        const CStringArray& item = zu::stringsAt(common, i);
        if (item[zu::kValueColumn] == zu::kVarious)
            continue;
        for (int entity = 0; entity < m_entities.GetSize(); ++entity) {
            const CPtrArray& table = zu::tableAt(m_entities, entity);
            if (const int index = CommonItemSearch(table, item[zu::kIdColumn]); index >= 0)
                zu::stringsAt(table, index)[zu::kValueColumn] = item[zu::kValueColumn];
        }
    }
}
