#include "choice_box.h"
#include "expander.h"

#include <zucomn/property_list.h>

#include <algorithm>

IMPLEMENT_DYNCREATE(CPropertyListCtrl, CListBox)

BEGIN_MESSAGE_MAP(CPropertyListCtrl, CListBox)
ON_WM_SIZE()
ON_WM_KEYDOWN()
ON_WM_CHAR()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_LBUTTONDBLCLK()
ON_MESSAGE(kPicked, OnPicked)
ON_MESSAGE(kClosedUp, OnClosedUp)
END_MESSAGE_MAP()

namespace {

constexpr const wchar_t* kProfileSection = L"PropertyList";
constexpr const wchar_t* kDividerEntry = L"Divider";
constexpr int kGripWidth = 3;
constexpr int kMinimumCellWidth = 40;

} // namespace

CPropertyListCtrl::CPropertyListCtrl() : m_choices(std::make_unique<zu::ChoiceBox>()) {}

CPropertyListCtrl::~CPropertyListCtrl() {
    CWnd::DestroyWindow();
}

BOOL CPropertyListCtrl::Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id) {
    LOGFONT font;
    m_headingFont.GetLogFont(&font);
    font.lfWeight = FW_BOLD;
    m_headingFont.CreateFontIndirect(&font);
    m_divider = static_cast<int>(AfxGetApp()->GetProfileInt(kProfileSection, kDividerEntry, 0));
    return CListBox::Create(style, rectangle, parent, id);
}

void CPropertyListCtrl::SetManager(CMyAdaptablePropertyItemManager* manager) {
    m_manager = manager;
    Refresh();
}

void CPropertyListCtrl::Refresh() {
    closeEditor();
    const Row* const selected = rowAt(GetCurSel());
    const Row before = selected != nullptr ? *selected : Row{-1, -1};
    SetRedraw(FALSE);
    const int top = GetTopIndex();
    const int rows = m_manager != nullptr ? static_cast<int>(m_manager->GetRows().size()) : 0;
    while (GetCount() > rows)
        DeleteString(static_cast<UINT>(GetCount() - 1));
    while (GetCount() < rows)
        AddString(L"");
    for (int index = 0; index < rows; ++index)
        if (const Row& row = *rowAt(index); row.category == before.category && row.item == before.item)
            SetCurSel(index);
    SetTopIndex(top);
    SetRedraw(TRUE);
    Invalidate();
}

const CPropertyListCtrl::Row* CPropertyListCtrl::rowAt(int index) const {
    const bool isValid =
        m_manager != nullptr && index >= 0 && index < static_cast<int>(m_manager->GetRows().size());
    return isValid ? &m_manager->GetRows()[static_cast<std::size_t>(index)] : nullptr;
}

const CPropertyItem* CPropertyListCtrl::itemAt(int index) const {
    const Row* const row = rowAt(index);
    return row != nullptr && row->category >= 0 && row->item >= 0 ? &m_manager->GetItem(row->item) : nullptr;
}

bool CPropertyListCtrl::isHeading(int index) const {
    const Row* const row = rowAt(index);
    return row != nullptr && row->category >= 0 && row->item < 0;
}

int CPropertyListCtrl::GetSelectedItem() const {
    const int index = GetCurSel();
    return itemAt(index) != nullptr ? rowAt(index)->item : -1;
}

void CPropertyListCtrl::SelectItem(int item) {
    for (int index = 0; rowAt(index) != nullptr; ++index)
        if (item >= 0 && itemAt(index) != nullptr && rowAt(index)->item == item)
            SetCurSel(index);
}

// ---- divider between names and values

int CPropertyListCtrl::GetDivider() const {
    CRect client;
    GetClientRect(&client);
    const int wanted = m_divider > 0 ? m_divider : client.Width() * 9 / 20;
    return std::clamp(
        wanted, std::min(kMinimumCellWidth, client.Width()),
        std::max(client.Width() - kMinimumCellWidth, std::min(kMinimumCellWidth, client.Width())));
}

void CPropertyListCtrl::setDivider(int position) {
    m_divider = std::max(position, kMinimumCellWidth);
    placeEditor();
    Invalidate();
}

bool CPropertyListCtrl::isOnDivider(CPoint point) const {
    BOOL outside = FALSE;
    const int index = static_cast<int>(ItemFromPoint(point, outside));
    return outside == FALSE && itemAt(index) != nullptr && std::abs(point.x - GetDivider()) <= kGripWidth;
}

void CPropertyListCtrl::OnSize(UINT type, int width, int height) {
    CListBox::OnSize(type, width, height);
    placeEditor();
    Invalidate();
}

// ---- mouse

void CPropertyListCtrl::OnMouseMove(UINT flags, CPoint point) {
    SetCursor(LoadCursorW(nullptr, m_isDragging || isOnDivider(point) ? IDC_SIZEWE : IDC_ARROW));
    if (m_isDragging)
        setDivider(point.x);
    else
        CListBox::OnMouseMove(flags, point);
}

void CPropertyListCtrl::OnLButtonDown(UINT flags, CPoint point) {
    if (isOnDivider(point)) {
        m_isDragging = true;
        return;
    }
    if (!EndEdit(true))
        return;
    CListBox::OnLButtonDown(flags, point);
    BOOL outside = FALSE;
    const int index = static_cast<int>(ItemFromPoint(point, outside));
    if (outside == FALSE && isHeading(index) && point.x < zu::kExpanderWidth)
        setExpanded(index, !m_manager->IsExpanded(rowAt(index)->category));
}

void CPropertyListCtrl::OnLButtonUp(UINT flags, CPoint point) {
    if (m_isDragging) {
        m_isDragging = false;
        AfxGetApp()->WriteProfileInt(kProfileSection, kDividerEntry, m_divider);
        return;
    }
    CListBox::OnLButtonUp(flags, point);
    BOOL outside = FALSE;
    const int index = static_cast<int>(ItemFromPoint(point, outside));
    if (outside == FALSE && index == GetCurSel() && itemAt(index) != nullptr && point.x > GetDivider())
        BeginEdit();
}

void CPropertyListCtrl::OnLButtonDblClk(UINT flags, CPoint point) {
    CListBox::OnLButtonDblClk(flags, point);
    BOOL outside = FALSE;
    const int index = static_cast<int>(ItemFromPoint(point, outside));
    if (outside == FALSE && isHeading(index) && point.x >= zu::kExpanderWidth)
        setExpanded(index, !m_manager->IsExpanded(rowAt(index)->category));
    else if (outside == FALSE && itemAt(index) != nullptr)
        BeginEdit();
}

// ---- keys

void CPropertyListCtrl::setExpanded(int index, bool expanded) {
    if (!isHeading(index))
        return;
    m_manager->SetExpanded(rowAt(index)->category, expanded);
    Refresh();
}

void CPropertyListCtrl::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    const int index = GetCurSel();
    const bool folds = isHeading(index);
    if (folds && (key == VK_LEFT || key == VK_SUBTRACT))
        setExpanded(index, false);
    else if (folds && (key == VK_RIGHT || key == VK_ADD))
        setExpanded(index, true);
    else if (folds && (key == VK_RETURN || key == VK_SPACE))
        setExpanded(index, !m_manager->IsExpanded(rowAt(index)->category));
    else if (!folds && (key == VK_RETURN || key == VK_F2 || key == VK_F4)) {
        if (BeginEdit() && key == VK_F4)
            m_choices->ShowDropDown();
    } else
        CListBox::OnKeyDown(key, repeat, flags);
}

/// Typing opens the editor. Where free text is allowed, the character replaces the value.
void CPropertyListCtrl::OnChar(UINT character, UINT /*repeat*/, UINT /*flags*/) {
    const CPropertyItem* const item = itemAt(GetCurSel());
    if (item == nullptr || !item->editable || GetKeyState(VK_CONTROL) < 0 || !BeginEdit())
        return;
    if (item->freeText)
        editor()->SetWindowText(CString(static_cast<wchar_t>(character)));
}

bool CPropertyListCtrl::moveSelection(int step) {
    const int wanted = GetCurSel() + step;
    if (rowAt(wanted) == nullptr)
        return false;
    SetCurSel(wanted);
    if (CWnd* const parent = GetParent(); parent != nullptr)
        parent->SendMessage(WM_COMMAND, MAKEWPARAM(static_cast<UINT>(GetDlgCtrlID()), LBN_SELCHANGE),
                            reinterpret_cast<LPARAM>(GetSafeHwnd()));
    return true;
}
