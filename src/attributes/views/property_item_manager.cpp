#include <zucomn/property_list.h>

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
    m_categories.clear();
    m_items.clear();
    m_rows.clear();
}

int CMyAdaptablePropertyItemManager::AddCategory(const CString& name) {
    m_categories.push_back({name, GetItemCount()});
    return static_cast<int>(m_categories.size()) - 1;
}

void CMyAdaptablePropertyItemManager::AddItem(const CPropertyItem& item) {
    if (m_categories.empty())
        AfxThrowInvalidArgException();
    const int category = static_cast<int>(m_categories.size()) - 1;
    if (m_categories.back().firstItem == GetItemCount())
        m_rows.push_back({category, -1});
    if (IsExpanded(category))
        m_rows.push_back({category, GetItemCount()});
    m_items.push_back(item);
}

const CString& CMyAdaptablePropertyItemManager::GetCategoryName(int category) const {
    return at(m_categories, category).name;
}

bool CMyAdaptablePropertyItemManager::IsExpanded(int category) const {
    return m_collapsed.count(GetCategoryName(category)) == 0;
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
    if (item < 0 || item >= GetItemCount() || GetItem(item).value == value)
        return false;
    CPropertyItem& changed = at(m_items, item);
    changed.value = value;
    changed.changed = true;
    return true;
}

const std::vector<CMyAdaptablePropertyItemManager::Row>& CMyAdaptablePropertyItemManager::GetRows() const {
    return m_rows;
}

void CMyAdaptablePropertyItemManager::rebuildRows() {
    m_rows.clear();
    for (int category = 0; category < static_cast<int>(m_categories.size()); ++category) {
        const bool isLast = category + 1 == static_cast<int>(m_categories.size());
        const int end = isLast ? GetItemCount() : at(m_categories, category + 1).firstItem;
        const int begin = at(m_categories, category).firstItem;
        if (begin == end)
            continue;
        m_rows.push_back({category, -1});
        for (int item = begin; item < end && IsExpanded(category); ++item)
            m_rows.push_back({category, item});
    }
}
