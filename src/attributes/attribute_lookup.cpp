#include <zucomn/attributes.h>

#include "attribute_record.h"
#include "frame/text_view.h"
#include "model/field_rules.h"

#include <string>
#include <string_view>

namespace {

CString withSeparator(const wchar_t* key) {
    CString text(key);
    if (text.IsEmpty() || text.GetAt(text.GetLength() - 1) != zu::kFieldSeparator)
        text += zu::kFieldSeparator;
    return text;
}

} // namespace

int CAttributeData::FindAtt(const CStringArray* list, const wchar_t* key) {
    const std::wstring_view wanted = key != nullptr ? key : L"";
    for (int i = 0; list != nullptr && i < list->GetSize(); ++i)
        if (zu::view((*list)[i]).starts_with(wanted))
            return i;
    return -1;
}

int CAttributeData::GetAtAtt(const CStringArray* list, const wchar_t* key, CString& out) {
    const int index = FindAtt(list, key);
    if (index < 0)
        return -1;
    out = (*list)[index];
    return 0;
}

int CAttributeData::GetAtt(const CStringArray* list, const wchar_t* key, CString& out) {
    const int index = FindAtt(list, key);
    if (index < 0)
        return -1;
    out = zu::attributeField((*list)[index], 1);
    return 0;
}

CString CAttributeData::GetValueAtt(const CStringArray* list, const wchar_t* key) {
    const CString wanted = withSeparator(key);
    const int index = FindAtt(list, wanted);
    if (index < 0)
        return {};
    const std::wstring_view fields = zu::view((*list)[index]).substr(zu::view(wanted).size());
    return zu::textOf(zu::attributeFieldIn(fields, 1));
}

int CAttributeData::SetAtAtt(CStringArray* list, const wchar_t* key, const wchar_t* value) {
    const int index = FindAtt(list, key);
    if (index < 0)
        return -1;
    const std::wstring_view text = zu::view((*list)[index]);
    // Only fields that end in a separator are kept.
    std::wstring changed(text.substr(0, text.rfind(zu::kFieldSeparator) + 1));
    const std::size_t start = changed.find(zu::kFieldSeparator) + 1;
    const std::size_t end = changed.find(zu::kFieldSeparator, start);
    if (end != std::wstring::npos)
        changed.replace(start, end - start, value != nullptr ? value : L"");
    list->SetAt(index, zu::textOf(changed));
    return 0;
}
