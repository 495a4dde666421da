#include <zucomn/attributes.h>

#include "attribute_record.h"
#include "frame/text_view.h"

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
    out = zu::splitFields((*list)[index]).front();
    return 0;
}

CString CAttributeData::GetValueAtt(const CStringArray* list, const wchar_t* key) {
    const CString wanted = withSeparator(key);
    CString found;
    if (GetAtAtt(list, wanted, found) != 0)
        return {};
    return zu::splitFields(found.Mid(wanted.GetLength())).front();
}

int CAttributeData::SetAtAtt(CStringArray* list, const wchar_t* key, const wchar_t* value) {
    const int index = FindAtt(list, key);
    if (index < 0)
        return -1;
    const std::vector<CString> fields = zu::splitFields((*list)[index]);
    CString changed;
    for (std::size_t i = 0; i + 1 < fields.size(); ++i)
        changed += (i == 1 ? CString(value) : fields[i]) + zu::kFieldSeparator;
    list->SetAt(index, changed);
    return 0;
}
