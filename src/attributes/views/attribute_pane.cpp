#include "attribute_pane.h"

#include "attributes/attribute_rows.h"
#include "attributes/attribute_tables.h"
#include "attributes/model/element_facts.h"
#include "attributes/model/field_rules.h"
#include "entity_attributes.h"
#include "frame/library_text.h"
#include "frame/module_state.h"
#include "frame/resource_ids.h"

#include <zucomn/attributes.h>

#include <algorithm>

namespace zu {

namespace {

/// An empty offered text allows free text, as does an item without offered texts.
CPropertyItem propertyOf(const ShownItem& shown, const ParameterIndex& parameters) {
    const CString id = attributeField(shown.key, 1);
    CPropertyItem item;
    item.key = shown.key;
    item.value = shown.value;
    item.name = CAttributeData::GetItemName(id);
    if (item.name.IsEmpty())
        item.name = shown.label.IsEmpty() ? id : shown.label;
    item.editable = isEditable(shown, parameters);
    item.choices = parameters.choices(id, shown.value);
    const auto end = std::remove_if(item.choices.begin(), item.choices.end(),
                                    [](const CString& text) { return text.IsEmpty(); });
    item.freeText = end != item.choices.end() || item.choices.empty();
    item.choices.erase(end, item.choices.end());
    item.type = item.choices.empty() ? 0 : CPropertyItem::kChoiceItem;
    return item;
}

bool precedes(const ShownItem& left, const ShownItem& right) {
    if (left.shared != right.shared)
        return left.shared;
    return compareIds(attributeField(left.key, 1), attributeField(right.key, 1)) < 0;
}

bool isDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

/// Parses the number at a position and advances the position past it.
long long parseNumber(const CString& text, int& position) {
    constexpr long long kMaximum = 1'000'000'000'000;
    long long number = 0;
    for (; position < text.GetLength() && isDigit(text[position]); ++position)
        number = std::min(number * 10 + (text[position] - L'0'), kMaximum);
    return number;
}

} // namespace

int compareIds(const CString& left, const CString& right) {
    int l = 0;
    int r = 0;
    while (l < left.GetLength() && r < right.GetLength()) {
        if (isDigit(left[l]) && isDigit(right[r])) {
            const long long first = parseNumber(left, l);
            const long long second = parseNumber(right, r);
            if (first != second)
                return first < second ? -1 : 1;
        } else if (left[l] != right[r]) {
            return left[l] < right[r] ? -1 : 1;
        } else {
            ++l;
            ++r;
        }
    }
    return (left.GetLength() - l) - (right.GetLength() - r);
}

bool AttributePane::create(CWnd& view) {
    constexpr DWORD kStyle =
        WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOTIFY | LBS_OWNERDRAWFIXED | LBS_NOINTEGRALHEIGHT;
    if (list_.Create(kStyle, CRect(), &view, kPropertyListId) == FALSE)
        return false;
    list_.SetFont(CFont::FromHandle(static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT))));
    list_.SetManager(&manager_);
    AttributeTables::instance().readMissing();
    return true;
}

void AttributePane::resize(int width, int height) {
    if (list_.GetSafeHwnd() != nullptr)
        list_.MoveWindow(0, 0, width, height);
}

void AttributePane::addNotices(bool hasItems, const LockedElements& locked, std::size_t selected) {
    if (hasItems)
        for (const CString& notice : tableNotices(usesMarks_))
            manager_.AddNotice(notice);
    if (const CString notice = lockNotice(locked, selected); !notice.IsEmpty())
        manager_.AddNotice(notice);
}

void AttributePane::addFacts(std::span<const AcDbObjectId> entities) {
    manager_.AddCategory(libraryText(text::kFactsCategory));
    for (const ElementFact& fact : factsOf(entities)) {
        CPropertyItem item;
        item.name = fact.name;
        item.value = fact.value;
        manager_.AddItem(item);
    }
}

void AttributePane::setFilter(const CString& text) {
    if (!list_.EndEdit(true))
        return;
    manager_.SetFilter(text);
    list_.Refresh();
}

void AttributePane::show(std::span<const ShownItem> items, CStringArray* keys,
                         std::span<const AcDbObjectId> entities) {
    const int before = list_.GetSelectedItem();
    const CString selectedKey = before >= 0 ? manager_.GetItem(before).key : CString();
    const ParameterIndex parameters(AttributeTables::instance().parameters());
    std::vector<ShownItem> ordered(items.begin(), items.end());
    std::stable_sort(ordered.begin(), ordered.end(), precedes);
    list_.EndEdit(false);
    manager_.Clear();
    const ResourceScope scope;
    entities_.assign(entities.begin(), entities.end());
    const LockedElements locked = lockedAmong(entities);
    addNotices(!items.empty(), locked, entities.size());
    const bool isLocked = !entities.empty() && locked.count == entities.size();
    auto item = ordered.begin();
    for (const bool shared : {true, false}) {
        manager_.AddCategory(libraryText(shared ? text::kCommonCategory : text::kGeneralCategory));
        for (; item != ordered.end() && item->shared == shared; ++item) {
            item->marked = item->marked && usesMarks_;
            CPropertyItem property = propertyOf(*item, parameters);
            property.editable = property.editable && !isLocked;
            manager_.AddItem(property);
            if (keys != nullptr)
                keys->Add(item->key);
        }
    }
    addFacts(entities);
    list_.Refresh();
    list_.SetCurSel(-1);
    if (!selectedKey.IsEmpty())
        list_.SelectItem(manager_.FindItem(selectedKey));
}

void AttributePane::showEntities(std::span<const AcDbObjectId> entities, CStringArray* keys) {
    show(shownItemsOf(entities), keys, entities);
}

bool AttributePane::hasChangesOf(std::span<const AcDbObjectId> entities) const {
    return !changedItems().empty() &&
           std::equal(entities.begin(), entities.end(), entities_.begin(), entities_.end());
}

void AttributePane::showPart(const wchar_t* partFile, CStringArray* keys) {
    CAttributeData data;
    CPtrArray lists;
    if (data.ReadData(CString(partFile), 0) == 0)
        data.WriteData(data.GetEntityList(), lists);
    std::vector<const CStringArray*> raw;
    raw.reserve(static_cast<std::size_t>(lists.GetSize()));
    for (int i = 0; i < lists.GetSize(); ++i)
        raw.push_back(&stringsAt(lists, i));
    show(raw.empty() ? std::vector<ShownItem>() : shownItems(raw), keys);
    data.WriteDataFree(lists);
}

int AttributePane::selected(CStringArray& keys, CStringArray& values) const {
    const int selectedItem = list_.GetSelectedItem();
    if (selectedItem < 0)
        return -1;
    const CPropertyItem& item = manager_.GetItem(selectedItem);
    if (item.key.IsEmpty() || item.value.IsEmpty())
        return -1;
    keys.Add(item.key);
    values.Add(item.value);
    return 0;
}

void AttributePane::all(CStringArray& keys, CStringArray& values) const {
    for (int i = 0; i < manager_.GetItemCount(); ++i)
        if (const CPropertyItem& item = manager_.GetItem(i); !item.key.IsEmpty()) {
            keys.Add(item.key);
            values.Add(item.value);
        }
}

void AttributePane::setValue(const wchar_t* key, const wchar_t* value) {
    if (manager_.SetValue(manager_.FindItem(CString(key) + L"|"), value))
        list_.Refresh();
}

std::vector<ShownItem> AttributePane::changedItems() const {
    std::vector<ShownItem> items;
    for (int i = 0; i < manager_.GetItemCount(); ++i)
        if (const CPropertyItem& item = manager_.GetItem(i); item.changed)
            items.push_back({item.key, item.value, true, item.name, usesMarks_ && item.editable});
    return items;
}

} // namespace zu
