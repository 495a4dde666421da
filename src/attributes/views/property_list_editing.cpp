#include "attributes/model/field_rules.h"
#include "choice_box.h"
#include "frame/library_text.h"
#include "frame/resource_ids.h"

#include <zucomn/property_list.h>

namespace {

constexpr UINT kChoicesId = 1;
constexpr UINT kTextId = 2;

void showRejected(const CString& value) {
    const bool hasBar = value.Find(L'|') >= 0;
    AfxMessageBox(zu::libraryText(hasBar ? zu::text::kNoBarInValues : zu::text::kNoLineEndInValues),
                  MB_OK | MB_ICONSTOP);
}

} // namespace

bool CPropertyListCtrl::IsEditing() const {
    return m_editedItem >= 0;
}

CWnd* CPropertyListCtrl::editor() {
    return m_choices->GetSafeHwnd() != nullptr ? static_cast<CWnd*>(m_choices.get())
                                               : static_cast<CWnd*>(&m_text);
}

bool CPropertyListCtrl::BeginEdit() {
    const int index = GetCurSel();
    const CPropertyItem* const item = itemAt(index);
    if (item == nullptr || !item->editable)
        return false;
    if (IsEditing() && m_editedItem == rowAt(index)->item)
        return true;
    if (!EndEdit(true))
        return false;
    openEditor(index, *item);
    return true;
}

void CPropertyListCtrl::openEditor(int index, const CPropertyItem& item) {
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE;
    constexpr DWORD kChoiceStyle = kStyle | WS_VSCROLL | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS;
    m_editedItem = rowAt(index)->item;
    const CRect cell = valueCell(index);
    if (item.choices.empty()) {
        m_text.Create(kStyle | ES_AUTOHSCROLL, cell, this, kTextId);
    } else {
        m_choices->Create(kChoiceStyle | (item.freeText ? CBS_DROPDOWN : CBS_DROPDOWNLIST), cell, this,
                          kChoicesId);
        m_choices->offer(item.value, item.choices);
    }
    editor()->SetWindowText(item.value);
    editor()->SetFocus();
    m_text.SetSel(0, -1);
    m_choices->SetEditSel(0, -1);
}

void CPropertyListCtrl::placeEditor() {
    if (IsEditing())
        editor()->MoveWindow(valueCell(GetCurSel()));
}

CString CPropertyListCtrl::editedText() const {
    CString text;
    if (m_choices->GetSafeHwnd() == nullptr)
        m_text.GetWindowText(text);
    else
        m_choices->GetWindowText(text);
    // Merely opening the editor does not trim a value.
    if (text == m_manager->GetItem(m_editedItem).value)
        return text;
    text.TrimLeft();
    text.TrimRight();
    return text;
}

void CPropertyListCtrl::closeEditor() {
    if (!IsEditing())
        return;
    m_isClosing = true;
    m_editedItem = -1;
    m_isDropped = false;
    const bool hadFocus = GetFocus() == editor();
    editor()->DestroyWindow();
    if (hadFocus)
        SetFocus();
    m_isClosing = false;
    Invalidate();
}

bool CPropertyListCtrl::EndEdit(bool accept) {
    if (!IsEditing() || m_isClosing)
        return !IsEditing();
    const CString value = editedText();
    if (accept && value != m_manager->GetItem(m_editedItem).value && !zu::canHold(value)) {
        m_isClosing = true;
        showRejected(value);
        m_isClosing = false;
        editor()->SetFocus();
        return false;
    }
    const int item = m_editedItem;
    closeEditor();
    if (accept && m_manager->SetValue(item, value)) {
        Invalidate();
        notifyParent(PLN_VALUECHANGED);
    }
    return true;
}

// ---- keys and notifications of the editor

/// Restores the value of the selected item. Returns false when it is not changed.
bool CPropertyListCtrl::restoreValue() {
    const bool isRestored = m_manager != nullptr && m_manager->RestoreValue(GetSelectedItem());
    Invalidate();
    return isRestored;
}

BOOL CPropertyListCtrl::PreTranslateMessage(MSG* message) {
    const bool isEscape = message->message == WM_KEYDOWN && message->wParam == VK_ESCAPE;
    if (isEscape && message->hwnd == GetSafeHwnd() && restoreValue())
        return TRUE;
    const bool isEditorKey =
        IsEditing() && message->message == WM_KEYDOWN && message->hwnd == editor()->GetSafeHwnd();
    return isEditorKey && onEditorKey(static_cast<UINT>(message->wParam))
               ? TRUE
               : CListBox::PreTranslateMessage(message);
}

bool CPropertyListCtrl::onEditorKey(UINT key) {
    const bool isAlt = GetKeyState(VK_MENU) < 0;
    switch (key) {
    case VK_ESCAPE:
        return EndEdit(false);
    case VK_RETURN: // With Ctrl the frame goes on to write the accepted value.
        return !EndEdit(true) || GetKeyState(VK_CONTROL) >= 0;
    case VK_TAB:
        editNeighbour(GetKeyState(VK_SHIFT) < 0 ? -1 : 1);
        return true;
    case VK_F4:
        m_choices->ShowDropDown();
        return true;
    case VK_UP:
    case VK_DOWN:
        if (isAlt)
            m_choices->ShowDropDown();
        else if (EndEdit(true))
            moveSelection(key == VK_UP ? -1 : 1);
        return true;
    default:
        return false;
    }
}

/// Opens the editor of the nearest editable item in the direction of `step`, if there is one.
void CPropertyListCtrl::editNeighbour(int step) {
    if (!EndEdit(true))
        return;
    for (int index = GetCurSel() + step; rowAt(index) != nullptr; index += step) {
        if (itemAt(index) == nullptr || !itemAt(index)->editable)
            continue;
        moveSelection(index - GetCurSel());
        BeginEdit();
        return;
    }
}

BOOL CPropertyListCtrl::OnCommand(WPARAM wParam, LPARAM lParam) {
    const UINT code = HIWORD(wParam);
    if (LOWORD(wParam) == kChoicesId && code == CBN_DROPDOWN)
        m_isDropped = true;
    else if (LOWORD(wParam) == kChoicesId && code == CBN_CLOSEUP)
        PostMessage(kClosedUp);
    else if (LOWORD(wParam) == kChoicesId && code == CBN_SELENDOK && m_isDropped)
        PostMessage(kPicked);
    else if (code == (LOWORD(wParam) == kChoicesId ? CBN_KILLFOCUS : EN_KILLFOCUS))
        EndEdit(true);
    else
        return CListBox::OnCommand(wParam, lParam);
    return TRUE;
}

/// Picking from the open drop-down list accepts the value; arrow keys in the closed list do not.
LRESULT CPropertyListCtrl::OnPicked(WPARAM /*wParam*/, LPARAM /*lParam*/) {
    EndEdit(true);
    return 0;
}

LRESULT CPropertyListCtrl::OnClosedUp(WPARAM /*wParam*/, LPARAM /*lParam*/) {
    m_isDropped = false;
    return 0;
}
