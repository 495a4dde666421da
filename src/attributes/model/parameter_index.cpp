#include "parameter_index.h"

#include "attributes/attribute_rows.h"

#include <algorithm>

namespace zu {

namespace {

constexpr int kEditableColumn = 3;
constexpr const wchar_t* kIdOfAllKinds = L"S501";

std::wstring keyOf(const CString& text) {
    return {static_cast<const wchar_t*>(text)};
}

wchar_t firstLetter(const CString& text) {
    return text.IsEmpty() ? L'\0' : text[0];
}

bool isPartKind(wchar_t kind) {
    return kind == L'A' || kind == L'P';
}

bool areCompatible(wchar_t item, wchar_t candidate) {
    if (item == L'E')
        return !isPartKind(candidate);
    return !isPartKind(item) || candidate != L'E';
}

} // namespace

ParameterIndex::ParameterIndex(const CPtrArray& parameters) {
    for (int i = 0; i < parameters.GetSize(); ++i) {
        const CStringArray& record = stringsAt(parameters, i);
        if (record.IsEmpty())
            continue;
        Entry& entry = entries_[keyOf(record[0])];
        if (record.GetSize() > kParameterText)
            entry.candidates.push_back({firstLetter(record[kParameterKind]), record[kParameterText]});
        if (record.GetSize() > kEditableColumn && firstLetter(record[kEditableColumn]) == L'1')
            entry.editable = true;
    }
}

const ParameterIndex::Entry* ParameterIndex::find(const CString& attributeId) const {
    const auto found = entries_.find(keyOf(attributeId));
    return found == entries_.end() ? nullptr : &found->second;
}

std::vector<CString> ParameterIndex::choices(const CString& attributeId, const CString& value) const {
    std::vector<CString> texts;
    const Entry* const entry = find(attributeId);
    if (entry == nullptr)
        return texts;
    const bool offersAllKinds = attributeId == kIdOfAllKinds;
    const wchar_t kind = firstLetter(value);
    for (const Candidate& candidate : entry->candidates) {
        const bool offered = offersAllKinds || areCompatible(kind, candidate.kind);
        if (offered && std::find(texts.begin(), texts.end(), candidate.text) == texts.end())
            texts.push_back(candidate.text);
    }
    return texts;
}

bool ParameterIndex::editable(const CString& attributeId) const {
    const Entry* const entry = find(attributeId);
    return entry != nullptr && entry->editable;
}

} // namespace zu
