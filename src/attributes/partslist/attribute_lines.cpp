#include "attributes/partslist/attribute_lines.h"

#include "attributes/attribute_record.h"
#include "attributes/attribute_rows.h"
#include "attributes/model/field_rules.h"

#include <algorithm>
#include <map>
#include <set>

namespace zu {

namespace {

constexpr wchar_t kBar = L'|';
constexpr const wchar_t* kLineEnds = L"\r\n";

CString itemText(std::span<const CString> fields) {
    CString text;
    for (std::size_t i = 0; i < kStoredFields; ++i) {
        if (i < fields.size())
            text += fields[i];
        text += kBar;
    }
    return text;
}

/// The fields of a line; what no "|" ends counts only when it is not blank.
std::vector<CString> fieldsOf(const CString& line) {
    std::vector<CString> fields = splitAtBars(line);
    if (CString(fields.back()).Trim().IsEmpty())
        fields.pop_back();
    return fields;
}

void appendItemsOfLine(const CString& line, CStringArray& lines) {
    const std::vector<CString> fields = fieldsOf(line);
    for (std::size_t at = 0; at < fields.size(); at += kStoredFields)
        lines.Add(itemText(std::span(fields).subspan(at)));
}

/// By attribute id, what the property list puts into the lines.
std::map<std::wstring, CString> valuesToSet(std::span<const ShownItem> items,
                                            const ParameterIndex& parameters) {
    std::map<std::wstring, CString> values;
    for (const ShownItem& item : items) {
        const CString id = attributeField(item.key, 1);
        if (item.value != kVarious && item.value.Find(kBar) < 0 && parameters.editable(id))
            values.try_emplace(static_cast<const wchar_t*>(id), item.value);
    }
    return values;
}

} // namespace

void appendItems(const CString& text, CStringArray& lines) {
    int start = 0;
    for (CString line = text.Tokenize(kLineEnds, start); start >= 0; line = text.Tokenize(kLineEnds, start))
        appendItemsOfLine(line, lines);
}

CString paddedLine(const CString& line) {
    return itemText(fieldsOf(line));
}

CString joinedLines(const CStringArray& lines, bool lineEnds) {
    CString text;
    for (int i = 0; i < lines.GetSize(); ++i) {
        text += lines[i];
        if (lineEnds)
            text += L'\n';
    }
    return text;
}

std::vector<LineRange> partsOf(const CStringArray& lines) {
    std::vector<LineRange> parts;
    std::set<std::wstring> ids;
    for (int i = 0; i < lines.GetSize(); ++i) {
        const CString id = attributeField(lines[i], 1);
        const bool isNew = id.IsEmpty() || ids.insert(static_cast<const wchar_t*>(id)).second;
        if (parts.empty() || !isNew) {
            parts.push_back({i, 0});
            ids = {static_cast<const wchar_t*>(id)};
        }
        ++parts.back().count;
    }
    return parts;
}

bool applyToLines(CStringArray& lines, std::span<const int> chosen, std::span<const ShownItem> items,
                  const ParameterIndex& parameters) {
    const auto values = valuesToSet(items, parameters);
    bool changed = false;
    for (const int i : chosen) {
        std::vector<CString> fields = fieldsOf(paddedLine(lines[i]));
        const auto found = values.find(static_cast<const wchar_t*>(fields[0]));
        if (found == values.end() || fields[1] == found->second)
            continue;
        fields[1] = found->second;
        lines[i] = itemText(fields);
        changed = true;
    }
    return changed;
}

} // namespace zu
