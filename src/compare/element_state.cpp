#include "element_state.h"

#include "attributes/attribute_record.h"
#include "entity_names.h"
#include "frame/text_view.h"
#include "route/link_record.h"

#include <zucomn/model/elements.h>

#include <arxutil.h>
#include <dbents.h>
#include <dbobjptr.h>
#include <windows.h>

#include <unordered_map>

namespace zu {

namespace {

using zucomn::ValueChange;

std::vector<std::wstring> textsOf(AcDbObjectId id, const wchar_t* application) {
    CStringArray list;
    if (ApiComn_extractAttributesArrayID(id, application, list) != 0)
        return {};
    std::vector<std::wstring> texts;
    texts.reserve(static_cast<std::size_t>(list.GetSize()));
    for (int i = 0; i < list.GetSize(); ++i)
        texts.emplace_back(zu::view(list[i]));
    return texts;
}

bool readReference(AcDbObjectId id, ElementState& state) {
    const AcDbObjectPointer<AcDbBlockReference> reference(id);
    if (reference.openStatus() != Acad::eOk)
        return false;
    ReferenceFacts facts;
    readFacts(*reference.object(), facts);
    state.block = zu::view(CString(facts.block.c_str()).MakeLower());
    state.layer = zu::layerName(*reference);
    state.position = facts.position;
    state.place = elementPlace(facts);
    return true;
}

std::wstring numberText(double value) {
    CString text;
    text.Format(L"%.15g", value);
    return std::wstring(zu::view(text));
}

std::wstring scaleText(const ElementPlace& place) {
    std::wstring text;
    for (const double factor : place.scale)
        text += (text.empty() ? L"" : L", ") + numberText(factor);
    return text;
}

std::optional<std::wstring> valueOrNone(const std::wstring& text) {
    return text.empty() ? std::nullopt : std::optional(text);
}

AttributeRecord recordOf(const ElementState& state) {
    CStringArray texts;
    for (const std::wstring& text : state.attributes)
        texts.Add(zu::textOf(text));
    return decodeRecord(texts).value_or(AttributeRecord());
}

std::wstring text(const CString& value) {
    return std::wstring(zu::view(value));
}

/// Records of damaged drawings have an id several times: its n-th occurrences belong together.
void addAttributes(const ElementState& before, const ElementState& after, std::vector<ValueChange>& changes) {
    const AttributeRecord old = recordOf(before);
    const AttributeRecord now = recordOf(after);
    const auto add = [&](const wchar_t* key, const CString& was, const CString& is) {
        if (was != is)
            changes.push_back({key, valueOrNone(text(was)), valueOrNone(text(is))});
    };
    add(zucomn::kNameKey, old.first, now.first);
    add(zucomn::kMarkKey, old.second, now.second);
    std::unordered_map<std::wstring, std::vector<std::size_t>> places;
    for (std::size_t i = old.items.size(); i-- > 0;)
        places[text(old.items[i][0])].push_back(i);
    std::vector<bool> isKept(old.items.size(), false);
    for (const ItemFields& item : now.items) {
        const auto found = places.find(text(item[0]));
        if (found == places.end() || found->second.empty()) {
            changes.push_back({text(item[0]), std::nullopt, text(item[1])});
            continue;
        }
        const std::size_t place = found->second.back();
        found->second.pop_back();
        isKept[place] = true;
        if (old.items[place][1] != item[1])
            changes.push_back({text(item[0]), text(old.items[place][1]), text(item[1])});
    }
    for (std::size_t i = 0; i < old.items.size(); ++i)
        if (!isKept[i])
            changes.push_back({text(old.items[i][0]), text(old.items[i][1]), std::nullopt});
}

} // namespace

std::vector<ElementState> readElementStates(const AcDbDatabase& drawing) {
    std::vector<ElementState> states;
    for (const AcDbObjectId id : zucomn::modelSpaceReferences(drawing)) {
        ElementState state;
        state.id = id;
        if (!readReference(id, state))
            continue;
        const std::vector<std::wstring> link = textsOf(id, kLinkApplication);
        state.link = link.empty() ? std::wstring() : link.front();
        state.attributes = textsOf(id, kAttributeApplication);
        states.push_back(std::move(state));
    }
    return states;
}

bool isMoved(const ElementState& before, const ElementState& after) {
    return before.place.position != after.place.position;
}

std::vector<ValueChange> changedValues(const ElementState& before, const ElementState& after) {
    const ElementPlace& was = before.place;
    const ElementPlace& is = after.place;
    std::vector<ValueChange> changes;
    if (was.rotation != is.rotation || was.normal != is.normal)
        changes.push_back({zucomn::kRotationKey, numberText(was.rotation), numberText(is.rotation)});
    if (was.scale != is.scale)
        changes.push_back({zucomn::kScaleKey, scaleText(was), scaleText(is)});
    if (_wcsicmp(before.layer.c_str(), after.layer.c_str()) != 0)
        changes.push_back({zucomn::kLayerKey, before.layer, after.layer});
    if (before.link != after.link)
        changes.push_back({zucomn::kLinkKey, valueOrNone(before.link), valueOrNone(after.link)});
    if (!before.hasAttributesOf(after))
        addAttributes(before, after, changes);
    return changes;
}

} // namespace zu
