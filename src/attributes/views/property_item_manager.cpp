#include "attributes/model/field_rules.h"

#include <zucomn/property_list.h>

#include <algorithm>

namespace {

template <typename Values>
auto& at(Values& values, int index) {
    if (index < 0 || index >= static_cast<int>(values.size()))
        AfxThrowInvalidArgException();
    return values[static_cast<std::size_t>(index)];
}

} // namespace

CMyAdaptablePropertyItemManager::CMyAdaptablePropertyItemManager() = default;
CMyAdaptablePropertyItemManager::~CMyAdaptablePropertyItemManager() = default;

void CMyAdaptablePropertyItemManager::Clear() {
    m_notices.clear();
    m_categories.clear();
    m_items.clear();
    m_rows.clear();
}

void CMyAdaptablePropertyItemManager::AddNotice(const CString& text) {
    m_notices.push_back(text);
    rebuildRows();
}

const CString& CMyAdaptablePropertyItemManager::GetNotice(int notice) const {
    return at(m_notices, notice);
}

int CMyAdaptablePropertyItemManager::AddCategory(const CString& name) {
    m_categories.push_back({name, GetItemCount()});
    return static_cast<int>(m_categories.size()) - 1;
}

void CMyAdaptablePropertyItemManager::AddItem(const CPropertyItem& item) {
    if (m_categories.empty())
        AfxThrowInvalidArgException();
    const int category = static_cast<int>(m_categories.size()) - 1;
    m_items.push_back(item);
    m_items.back().original = item.value;
    appendRow(category, GetItemCount() - 1);
}

void CMyAdaptablePropertyItemManager::appendRow(int category, int item) {
    if (!matches(GetItem(item), m_filter))
        return;
    if (m_rows.empty() || m_rows.back().category != category)
        m_rows.push_back({category, -1});
    if (IsExpanded(category))
        m_rows.push_back({category, item});
}

const CString& CMyAdaptablePropertyItemManager::GetCategoryName(int category) const {
    return at(m_categories, category).name;
}

bool CMyAdaptablePropertyItemManager::IsExpanded(int category) const {
    return m_collapsed.count(GetCategoryName(category)) == 0 || !m_filter.IsEmpty();
}

void CMyAdaptablePropertyItemManager::SetExpanded(int category, bool expanded) {
    if (expanded)
        m_collapsed.erase(GetCategoryName(category));
    else
        m_collapsed.insert(GetCategoryName(category));
    rebuildRows();
}

int CMyAdaptablePropertyItemManager::GetItemCount() const {
    return static_cast<int>(m_items.size());
}

const CPropertyItem& CMyAdaptablePropertyItemManager::GetItem(int item) const {
    return at(m_items, item);
}

int CMyAdaptablePropertyItemManager::FindItem(const CString& key) const {
    for (int item = 0; item < GetItemCount(); ++item)
        if (GetItem(item).key == key)
            return item;
    return -1;
}

bool CMyAdaptablePropertyItemManager::SetValue(int item, const CString& value) {
    if (item < 0 || item >= GetItemCount() || GetItem(item).value == value || !zu::canHold(value))
        return false;
    CPropertyItem& changed = at(m_items, item);
    changed.value = value;
    changed.changed = value != changed.original;
    return true;
}

bool CMyAdaptablePropertyItemManager::RestoreValue(int item) {
    if (item < 0 || item >= GetItemCount() || !GetItem(item).changed)
        return false;
    CPropertyItem& restored = at(m_items, item);
    restored.value = restored.original;
    restored.changed = false;
    return true;
}

bool CMyAdaptablePropertyItemManager::matches(const CPropertyItem& item, const CString& text) {
    return zu::containsText(item.name, text) || zu::containsText(item.value, text);
}

void CMyAdaptablePropertyItemManager::SetFilter(const CString& text) {
    m_filter = text;
    rebuildRows();
}

int CMyAdaptablePropertyItemManager::CountMatches(const CString& text) const {
    return static_cast<int>(std::count_if(m_items.begin(), m_items.end(), [&](const CPropertyItem& item) {
        return !item.key.IsEmpty() && matches(item, text);
    }));
}

const std::vector<CMyAdaptablePropertyItemManager::Row>& CMyAdaptablePropertyItemManager::GetRows() const {
    return m_rows;
}

void CMyAdaptablePropertyItemManager::rebuildRows() {
    m_rows.clear();
    for (int notice = 0; notice < static_cast<int>(m_notices.size()); ++notice)
        m_rows.push_back({-1, notice});
    for (int category = 0; category < static_cast<int>(m_categories.size()); ++category) {
        const bool isLast = category + 1 == static_cast<int>(m_categories.size());
        const int end = isLast ? GetItemCount() : at(m_categories, category + 1).firstItem;
        for (int item = at(m_categories, category).firstItem; item < end; ++item)
            appendRow(category, item);
    }
}
