#include "attribute_pane.h"
#include "frame/library_text.h"
#include "frame/module_state.h"
#include "frame/resource_ids.h"
#include "pane_splitter.h"

#include <arxutil.h>
#include <zucomn/views.h>

IMPLEMENT_DYNCREATE(CAttFrameWnd, CFrameWnd)
IMPLEMENT_DYNCREATE(CAttFrameWnd_ZU, CAttFrameWnd)

namespace {

constexpr UINT kSearchId = 3010;
constexpr int kLeftWidth = 150;

} // namespace

BEGIN_MESSAGE_MAP(CAttFrameWnd, CFrameWnd)
ON_EN_CHANGE(kSearchId, OnSearch)
ON_WM_DESTROY()
END_MESSAGE_MAP()

CAttFrameWnd::CAttFrameWnd() : m_splitter(std::make_unique<zu::PaneSplitter>(L"AttributeWindow")) {}
CAttFrameWnd::~CAttFrameWnd() = default;
CAttFrameWnd_ZU::CAttFrameWnd_ZU() = default;
CAttFrameWnd_ZU::~CAttFrameWnd_ZU() = default;

const CRuntimeClass* CAttFrameWnd::leftClass() const {
    return RUNTIME_CLASS(CEntView);
}

const CRuntimeClass* CAttFrameWnd::rightClass() const {
    return RUNTIME_CLASS(CAttView);
}

const CRuntimeClass* CAttFrameWnd_ZU::leftClass() const {
    return RUNTIME_CLASS(CEntView_ZU);
}

const CRuntimeClass* CAttFrameWnd_ZU::rightClass() const {
    return RUNTIME_CLASS(CAttView_ZU);
}

BOOL CAttFrameWnd::OnCreateClient(LPCREATESTRUCT /*create*/, CCreateContext* context) {
    const bool isMade =
        m_splitter->CreateStatic(this, 1, 2, WS_CHILD | WS_VISIBLE, AFX_IDW_PANE_FIRST) != FALSE &&
        m_splitter->CreateView(0, 0, leftClass(), CSize(kLeftWidth, 300), context) != FALSE &&
        m_splitter->CreateView(0, 1, rightClass(), CSize(200, 300), context) != FALSE &&
        m_splitter->ModifyStyleEx(0, WS_EX_CLIENTEDGE) != FALSE;
    if (!isMade) {
        m_splitter->DestroyWindow();
        return FALSE;
    }
    m_splitter->restoreWidth(kLeftWidth);
    return createBars() ? TRUE : FALSE;
}

bool CAttFrameWnd::createBars() {
    const zu::ResourceScope scope;
    const bool isMade =
        m_bar.Create(this) != FALSE &&
        m_search.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, CRect(), &m_bar, kSearchId) != FALSE &&
        m_bar.AddBar(&m_search) != FALSE && m_status.Create(this) != FALSE;
    return isMade && m_search.SetCueBanner(zu::libraryText(zu::text::kSearch)) != FALSE;
}

void CAttFrameWnd::OnDestroy() {
    m_splitter->saveWidth();
    CFrameWnd::OnDestroy();
}

void CAttFrameWnd::SetPaneWidth(int width) {
    m_splitter->restoreWidth(width);
}

void CAttFrameWnd::SetStatus(const CString& text) {
    m_status.SetPaneText(0, text);
}

CString CAttFrameWnd::GetStatus() const {
    return m_status.GetPaneText(0);
}

// ---- search

void CAttFrameWnd::OnSearch() {
    CEntView* const left = GetLeftPane();
    CAttView* const right = GetRightPane();
    if (left == nullptr || right == nullptr)
        return;
    CString text;
    m_search.GetWindowText(text);
    text.Trim();
    const int items = right->pane().manager().CountMatches(text);
    const std::size_t elements = left->Filter(text);
    right->pane().setFilter(items > 0 ? text : CString());
    if (elements > 0 || items > 0)
        return left->CompleteUpdate();
    const zu::ResourceScope scope;
    CString message;
    message.Format(zu::libraryText(zu::text::kNotFound), text);
    SetStatus(message);
}

// ---- keys

BOOL CAttFrameWnd::PreTranslateMessage(MSG* message) {
    const auto key = static_cast<UINT>(message->wParam);
    const bool hasPanes = GetLeftPane() != nullptr && GetRightPane() != nullptr;
    if (hasPanes && message->message == WM_KEYDOWN &&
        (runsCommand(key) || (message->hwnd == m_search.GetSafeHwnd() && onSearchKey(key))))
        return TRUE;
    return CFrameWnd::PreTranslateMessage(message);
}

bool CAttFrameWnd::runsCommand(UINT key) {
    if (GetKeyState(VK_CONTROL) >= 0)
        return false;
    const bool isText = GetFocus() == &m_search || GetRightPane()->pane().list().IsEditing();
    if (key == 'F') {
        m_search.SetFocus();
        m_search.SetSel(0, -1);
    } else if (key == VK_RETURN) {
        GetLeftPane()->OnUpdateAttributes();
    } else if ((key == 'Z' || key == 'Y') && !isText) {
        ApiComn_sendCommand(key == 'Z' ? L"_U" : L"_REDO", 0, 1, 1);
        GetLeftPane()->Synchronise();
    } else {
        return false;
    }
    return true;
}

bool CAttFrameWnd::onSearchKey(UINT key) {
    if (key == VK_ESCAPE)
        m_search.SetWindowText(L"");
    else if (key == VK_RETURN || key == VK_DOWN)
        GetLeftPane()->FocusList();
    else
        return false;
    return true;
}

CEntView* CAttFrameWnd::GetLeftPane() const {
    return static_cast<CEntView*>(paneAt(0));
}

CAttView* CAttFrameWnd::GetRightPane() const {
    return static_cast<CAttView*>(paneAt(1));
}

CWnd* CAttFrameWnd::paneAt(int column) const {
    return column < m_splitter->GetColumnCount() ? m_splitter->GetPane(0, column) : nullptr;
}

CEntView_ZU* CAttFrameWnd_ZU::GetLeftPane() const {
    return static_cast<CEntView_ZU*>(paneAt(0));
}

CAttView_ZU* CAttFrameWnd_ZU::GetRightPane() const {
    return static_cast<CAttView_ZU*>(paneAt(1));
}
