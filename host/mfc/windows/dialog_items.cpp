#include "zuhost/windows/controls.h"

#include <tchar.h>

// A window's children by their identifiers.

int CWnd::GetDlgItemText(int id, CString& text) const {
    const CWnd* const item = GetDlgItem(id);
    text.Empty();
    if (item != nullptr)
        item->GetWindowText(text);
    return text.GetLength();
}

int CWnd::GetDlgItemText(int id, wchar_t* buffer, int size) const {
    CString text;
    GetDlgItemText(id, text);
    return lstrcpyn(buffer, text, size) != nullptr ? lstrlen(buffer) : 0;
}

void CWnd::SetDlgItemText(int id, const wchar_t* text) {
    if (CWnd* const item = GetDlgItem(id))
        item->SetWindowText(text);
}

UINT CWnd::GetDlgItemInt(int id, BOOL* translated, BOOL isSigned) const {
    CString text;
    GetDlgItemText(id, text);
    const wchar_t* const start = text.Trim();
    wchar_t* end = nullptr;
    const UINT value =
        isSigned != FALSE ? static_cast<UINT>(_tcstol(start, &end, 10)) : _tcstoul(start, &end, 10);
    const bool isNumber = end != start && *end == L'\0' && (isSigned != FALSE || *start != L'-');
    if (translated != nullptr)
        *translated = isNumber ? TRUE : FALSE;
    return isNumber ? value : 0;
}

void CWnd::SetDlgItemInt(int id, UINT value, BOOL isSigned) {
    CString text;
    text.Format(isSigned != FALSE ? L"%d" : L"%u", value);
    SetDlgItemText(id, text);
}

void CWnd::CheckDlgButton(int id, UINT check) {
    if (auto* const button = dynamic_cast<CButton*>(GetDlgItem(id)))
        button->SetCheck(static_cast<int>(check));
}

UINT CWnd::IsDlgButtonChecked(int id) const {
    const auto* const button = dynamic_cast<const CButton*>(GetDlgItem(id));
    return button != nullptr ? static_cast<UINT>(button->GetCheck()) : 0;
}
