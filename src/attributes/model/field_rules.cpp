#include "field_rules.h"

#include "attributes/attribute_rows.h"
#include "frame/text_view.h"

#include <zucomn/model/attributes.h>

namespace zu {

CString attributeField(const CString& text, int n) {
    return zu::textOf(attributeFieldIn(zu::view(text), n));
}

std::wstring_view attributeFieldIn(std::wstring_view text, int n) {
    if (n < 1)
        return {};
    for (int field = 1;; ++field) {
        const std::size_t end = text.find(kFieldSeparator);
        if (field == n || end == std::wstring_view::npos)
            return text.substr(0, end);
        text.remove_prefix(end + 1);
    }
}

bool containsText(const CString& text, const CString& part) {
    return CString(text).MakeLower().Find(CString(part).MakeLower()) >= 0;
}

bool canHold(const CString& value) {
    const zucomn::ValueFault fault = zucomn::valueFault(zu::view(value));
    return fault == zucomn::ValueFault::none || fault == zucomn::ValueFault::placeholder;
}

bool isEditable(const CString& text) {
    return attributeField(text, 4).Left(1) == L"1";
}

bool findIdCode(CString& code, const CPtrArray& table, const CString& first, const CString& third) {
    for (int i = 0; i < table.GetSize(); ++i) {
        const CStringArray& record = stringsAt(table, i);
        if (record.GetSize() < 3 || record[0].CompareNoCase(first) != 0 ||
            record[2].CompareNoCase(third) != 0)
            continue;
        code = record[1];
        return true;
    }
    return false;
}

} // namespace zu

zucomn::ValueFault zucomn::valueFault(std::wstring_view value) {
    if (value == zu::kVarious)
        return ValueFault::placeholder;
    if (value.find(zu::kFieldSeparator) != std::wstring_view::npos)
        return ValueFault::separator;
    return value.find_first_of(L"\r\n") != std::wstring_view::npos ? ValueFault::lineEnd : ValueFault::none;
}
