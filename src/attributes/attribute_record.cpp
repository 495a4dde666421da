#include "attribute_record.h"

#include "frame/text_view.h"
#include "model/field_rules.h"

#include <algorithm>

namespace zu {

namespace {

CString trimmed(CString text) {
    return text.Trim();
}

CString fieldOrEmpty(const std::vector<CString>& fields, std::size_t index) {
    return index < fields.size() ? fields[index] : CString();
}

CString encodeItem(const ItemFields& fields) {
    CString text;
    for (const CString& field : fields)
        text += trimmed(field) + kFieldSeparator;
    return text;
}

} // namespace

std::vector<CString> splitFields(const CString& text) {
    std::vector<CString> fields;
    int start = 0;
    for (int end = text.Find(kFieldSeparator); end >= 0; end = text.Find(kFieldSeparator, start)) {
        fields.push_back(text.Mid(start, end - start));
        start = end + 1;
    }
    fields.push_back(text.Mid(start));
    return fields;
}

std::vector<CString> encodeRecord(const AttributeRecord& record) {
    if (record.items.empty())
        return {};
    CString header;
    header.Format(L"%d|", static_cast<int>(record.items.size()));
    header += trimmed(record.first) + kFieldSeparator + trimmed(record.second) + kFieldSeparator;
    std::vector<CString> strings{header};
    std::transform(record.items.begin(), record.items.end(), std::back_inserter(strings), encodeItem);
    return strings;
}

std::optional<AttributeRecord> decodeRecord(const CStringArray& strings) {
    if (strings.IsEmpty())
        return std::nullopt;
    const std::vector<CString> header = splitFields(strings[0]);
    AttributeRecord record{fieldOrEmpty(header, 1), fieldOrEmpty(header, 2), {}};
    for (int i = 1; i < strings.GetSize(); ++i) {
        const std::vector<CString> fields = splitFields(strings[i]);
        ItemFields& item = record.items.emplace_back();
        for (std::size_t column = 0; column < item.size(); ++column)
            item[column] = fieldOrEmpty(fields, column);
    }
    return record;
}

std::wstring_view itemValue(const CStringArray& strings, std::wstring_view id) {
    constexpr std::wstring_view kBlanks = L" \t\u3000";
    for (int i = 1; i < strings.GetSize(); ++i) {
        const std::wstring_view item = zu::view(strings[i]);
        if (!item.starts_with(id) || attributeFieldIn(item, 1) != id)
            continue;
        std::wstring_view value = item.size() > id.size() ? attributeFieldIn(item, 2) : std::wstring_view();
        value.remove_prefix(std::min(value.find_first_not_of(kBlanks), value.size()));
        return value.substr(0, value.find_last_not_of(kBlanks) + 1);
    }
    return {};
}

} // namespace zu
