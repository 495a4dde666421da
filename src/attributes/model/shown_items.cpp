#include "attributes/model/shown_items.h"

#include "attributes/attribute_rows.h"
#include "attributes/model/field_rules.h"

#include <zucomn/attributes.h>

namespace zu {

namespace {

struct Occurrence {
    std::size_t place = 0;
    std::size_t entities = 0;
    std::size_t lastEntity = 0;
};

} // namespace

std::vector<ShownItem> shownItems(std::span<const CStringArray* const> lists) {
    std::vector<ShownItem> items;
    std::map<std::wstring, Occurrence> byId;
    for (std::size_t entity = 0; entity < lists.size(); ++entity) {
        const CStringArray& list = *lists[entity];
        for (int i = 1; i < list.GetSize(); ++i) {
            const CString id = attributeField(list[i], 1);
            if (id.IsEmpty())
                continue;
            const CString value = attributeField(list[i], 2);
            const auto [found, isNew] = byId.try_emplace(static_cast<const wchar_t*>(id));
            Occurrence& occurrence = found->second;
            if (isNew) {
                occurrence = {items.size(), 1, entity};
                items.push_back({id + L"|", value});
                continue;
            }
            if (occurrence.lastEntity == entity)
                continue;
            occurrence.lastEntity = entity;
            ++occurrence.entities;
            if (ShownItem& item = items[occurrence.place]; item.value != value)
                item.value = kVarious;
        }
    }
    for (const auto& [id, occurrence] : byId)
        items[occurrence.place].shared = occurrence.entities == lists.size();
    return items;
}

bool applyItems(CStringArray& list, std::span<const ShownItem> items, const ParameterIndex& parameters) {
    bool changed = false;
    for (const ShownItem& item : items) {
        CString before;
        if (item.value == kVarious || item.value.Find(L'|') >= 0 ||
            !parameters.editable(attributeField(item.key, 1)) ||
            CAttributeData::GetAtAtt(&list, item.key, before) != 0 || attributeField(before, 2) == item.value)
            continue;
        changed = CAttributeData::SetAtAtt(&list, item.key, item.value) == 0 || changed;
    }
    return changed;
}

} // namespace zu
