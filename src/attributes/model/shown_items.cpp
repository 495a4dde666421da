#include "shown_items.h"

#include "attributes/attribute_rows.h"
#include "field_rules.h"
#include "frame/line_splitter.h"
#include "frame/text_view.h"

#include <zucomn/attributes.h>
#include <zucomn/model/attributes.h>

#include <algorithm>
#include <iterator>

namespace zu {

namespace {

/// Returns the value field without trailing blanks.
std::wstring_view valueOf(const CString& text) {
    return withoutTrailingSpaces(attributeFieldIn(zu::view(text), 2));
}

/// Returns field n when it ends in "|", else an empty text.
std::wstring_view endedField(std::wstring_view text, int n) {
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != kFieldSeparator)
            continue;
        if (--n == 0)
            return text.substr(start, i - start);
        start = i + 1;
    }
    return {};
}

bool isMarkedEditable(const CString& text) {
    constexpr int kMarkField = 6;
    return endedField(zu::view(text), kMarkField).starts_with(L'1');
}

CString labelOf(const CString& text) {
    constexpr int kLabelField = 4;
    return zu::textOf(endedField(zu::view(text), kLabelField)).Trim();
}

struct Occurrence {
    std::size_t index = 0;
    std::size_t entities = 0;
    std::size_t lastEntity = 0;
};

} // namespace

std::vector<ShownItem> shownItems(std::span<const CStringArray* const> lists) {
    std::vector<ShownItem> items;
    std::map<std::wstring, Occurrence, std::less<>> byId;
    for (std::size_t entity = 0; entity < lists.size(); ++entity) {
        const CStringArray& list = *lists[entity];
        for (int i = 1; i < list.GetSize(); ++i) {
            const std::wstring_view id = attributeFieldIn(zu::view(list[i]), 1);
            if (id.empty())
                continue;
            const std::wstring_view value = valueOf(list[i]);
            const auto found = byId.find(id);
            if (found == byId.end()) {
                byId.emplace(id, Occurrence{items.size(), 1, entity});
                items.push_back({zu::textOf(id) + L"|", zu::textOf(value), true, labelOf(list[i]),
                                 isMarkedEditable(list[i])});
                continue;
            }
            Occurrence& occurrence = found->second;
            if (occurrence.lastEntity == entity)
                continue;
            occurrence.lastEntity = entity;
            ++occurrence.entities;
            ShownItem& item = items[occurrence.index];
            if (zu::view(item.value) != value)
                item.value = kVarious;
            item.marked = item.marked && isMarkedEditable(list[i]);
            if (item.label.IsEmpty())
                item.label = labelOf(list[i]);
        }
    }
    for (const auto& [id, occurrence] : byId)
        items[occurrence.index].shared = occurrence.entities == lists.size();
    return items;
}

bool isEditable(const ShownItem& item, const ParameterIndex& parameters) {
    return parameters.isEmpty() ? item.marked : parameters.editable(attributeField(item.key, 1));
}

std::vector<ShownItem> writableItems(std::span<const ShownItem> items, const ParameterIndex& parameters) {
    std::vector<ShownItem> writable;
    std::copy_if(items.begin(), items.end(), std::back_inserter(writable), [&](const ShownItem& item) {
        return zucomn::valueFault(zu::view(item.value)) == zucomn::ValueFault::none &&
               isEditable(item, parameters);
    });
    return writable;
}

bool applyItems(CStringArray& list, std::span<const ShownItem> writable) {
    bool changed = false;
    for (const ShownItem& item : writable) {
        const int index = CAttributeData::FindAtt(&list, item.key);
        if (index < 0 || valueOf(list[index]) == zu::view(item.value))
            continue;
        // SetAtAtt removes a last field that does not end in "|".
        if (list[index].Find(kFieldSeparator, item.key.GetLength()) < 0)
            list[index] += kFieldSeparator;
        changed = CAttributeData::SetAtAtt(&list, item.key, item.value) == 0 || changed;
    }
    return changed;
}

} // namespace zu
