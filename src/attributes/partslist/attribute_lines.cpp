#include "attribute_lines.h"

#include "attributes/attribute_record.h"
#include "attributes/model/field_rules.h"

#include <zucomn/attributes.h>

#include <map>
#include <set>

namespace zu {

namespace {

constexpr int kLabelField = 4;
constexpr const wchar_t* kLineEnds = L"\r\n";

CString itemText(std::span<const CString> fields) {
    CString text;
    for (std::size_t i = 0; i < kStoredFields; ++i) {
        if (i < fields.size())
            text += fields[i];
        text += kFieldSeparator;
    }
    return text;
}

/// Splits a line into fields. Text after the last "|" counts as a field unless it is blank.
std::vector<CString> fieldsOf(const CString& line) {
    std::vector<CString> fields = splitFields(line);
    if (CString(fields.back()).Trim().IsEmpty())
        fields.pop_back();
    return fields;
}

void appendItemsOfLine(const CString& line, CStringArray& lines) {
    const std::vector<CString> fields = fieldsOf(line);
    for (std::size_t first = 0; first < fields.size(); first += kStoredFields)
        lines.Add(itemText(std::span(fields).subspan(first)));
}

/// Returns the values to write into the lines, by attribute id.
std::map<std::wstring, CString> valuesToWrite(std::span<const ShownItem> items,
                                              const ParameterIndex& parameters) {
    std::map<std::wstring, CString> values;
    for (const ShownItem& item : writableItems(items, parameters))
        values.try_emplace(static_cast<const wchar_t*>(attributeField(item.key, 1)), item.value);
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

CString withValue(const CString& line, const CString& value) {
    std::vector<CString> fields = fieldsOf(paddedLine(line));
    fields[1] = value;
    return itemText(fields);
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

std::vector<ShownItem> shownItemsOf(const CStringArray& lines) {
    std::vector<CStringArray> records;
    for (const LineRange& part : partsOf(lines)) {
        records.emplace_back().Add(CString()); // stands for the header of a record
        for (int i = part.first; i < part.first + part.count; ++i)
            records.back().Add(lines[i]);
    }
    std::vector<const CStringArray*> lists;
    lists.reserve(records.size());
    for (const CStringArray& record : records)
        lists.push_back(&record);
    return shownItems(lists);
}

void applyToLines(CStringArray& lines, std::span<const ShownItem> items, const ParameterIndex& parameters) {
    const auto values = valuesToWrite(items, parameters);
    for (int i = 0; i < lines.GetSize(); ++i) {
        const auto value = values.find(static_cast<const wchar_t*>(attributeField(lines[i], 1)));
        if (value != values.end() && attributeField(lines[i], 2) != value->second)
            lines[i] = withValue(lines[i], value->second);
    }
}

CString lineName(const CString& line) {
    const CString id = attributeField(line, 1);
    if (CString name = CAttributeData::GetItemName(id); !name.IsEmpty())
        return name;
    CString label = attributeField(line, kLabelField);
    return label.IsEmpty() ? id : label;
}

} // namespace zu
