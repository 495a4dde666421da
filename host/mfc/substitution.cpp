#include "afx.h"

BOOL AfxExtractSubString(CString& piece, const wchar_t* text, int index, wchar_t separator) {
    piece.Empty();
    if (text == nullptr || index < 0)
        return FALSE;
    std::wstring_view rest(text);
    for (; index > 0; --index) {
        const std::size_t end = rest.find(separator);
        if (end == std::wstring_view::npos)
            return FALSE;
        rest.remove_prefix(end + 1);
    }
    piece = CString(rest.data(), static_cast<int>(std::min(rest.find(separator), rest.size())));
    return TRUE;
}

void AfxFormatStrings(CString& result, const wchar_t* format, const wchar_t* const* texts, int count) {
    CString text;
    for (const wchar_t* c = format != nullptr ? format : L""; *c != L'\0'; ++c) {
        const bool isPlace = *c == L'%' && c[1] >= L'1' && c[1] <= L'9';
        const int index = isPlace ? static_cast<int>(c[1] - L'1') : 0;
        if (isPlace && index < count) {
            text += texts[index];
            ++c;
        } else {
            text += *c;
        }
    }
    result = text;
}

void AfxFormatStrings(CString& result, UINT id, const wchar_t* const* texts, int count) {
    CString format;
    static_cast<void>(format.LoadString(id));
    AfxFormatStrings(result, format, texts, count);
}

void AfxFormatString1(CString& result, const wchar_t* format, const wchar_t* first) {
    AfxFormatStrings(result, format, &first, 1);
}

void AfxFormatString1(CString& result, UINT id, const wchar_t* first) {
    AfxFormatStrings(result, id, &first, 1);
}

void AfxFormatString2(CString& result, const wchar_t* format, const wchar_t* first, const wchar_t* second) {
    const wchar_t* const texts[] = {first, second};
    AfxFormatStrings(result, format, texts, 2);
}

void AfxFormatString2(CString& result, UINT id, const wchar_t* first, const wchar_t* second) {
    const wchar_t* const texts[] = {first, second};
    AfxFormatStrings(result, id, texts, 2);
}
