#include <zucomn/strings.h>

#include "line_splitter.h"
#include "text_view.h"

int ZuComn_SeparateString(const wchar_t* text, CStringArray& fields, wchar_t separator) {
    const CString whole(text);
    fields.RemoveAll();
    if (whole.Find(separator) < 0) {
        fields.Add(whole);
        return 1;
    }
    for (int start = 0; start >= 0;) {
        const int end = whole.Find(separator, start);
        CString field = end < 0 ? whole.Mid(start) : whole.Mid(start, end - start);
        fields.Add(field.Trim());
        start = end < 0 ? -1 : end + 1;
    }
    return fields.GetSize();
}

int ZuComn_GetSplitString(const wchar_t* text, CStringArray& fields, const wchar_t* columns,
                          const wchar_t* separator) {
    // Copied because the text may be one of the fields removed below.
    const CString whole(text);
    const wchar_t delimiter = separator != nullptr ? *separator : L'\0';
    const zu::ColumnSelection selection(columns);
    fields.RemoveAll();
    if (whole.IsEmpty() || delimiter == L'\0')
        return -1;
    zu::splitLine(zu::view(whole), delimiter, selection,
                  [&fields](std::wstring_view field) { fields.Add(zu::textOf(field)); });
    return fields.IsEmpty() ? -1 : 0;
}
