#include "attribute_pane.h"

#include <arxutil.h>
#include <zucomn/views.h>

IMPLEMENT_DYNCREATE(CAttFrameWnd, CFrameWnd)
IMPLEMENT_DYNCREATE(CAttFrameWnd_ZU, CAttFrameWnd)

CAttFrameWnd::CAttFrameWnd() = default;
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
        m_splitter.CreateStatic(this, 1, 2, WS_CHILD | WS_VISIBLE, AFX_IDW_PANE_FIRST) != FALSE &&
        m_splitter.CreateView(0, 0, leftClass(), CSize(150, 300), context) != FALSE &&
        m_splitter.CreateView(0, 1, rightClass(), CSize(200, 300), context) != FALSE &&
        m_splitter.ModifyStyleEx(0, WS_EX_CLIENTEDGE) != FALSE;
    if (!isMade)
        m_splitter.DestroyWindow();
    return isMade ? TRUE : FALSE;
}

BOOL CAttFrameWnd::PreTranslateMessage(MSG* message) {
    const bool isControl = message->message == WM_KEYDOWN && GetKeyState(VK_CONTROL) < 0;
    const bool isUndo = isControl && message->wParam == 'Z';
    const bool isRedo = isControl && message->wParam == 'Y';
    if ((!isUndo && !isRedo) || GetLeftPane() == nullptr || GetRightPane() == nullptr ||
        GetRightPane()->pane().list().IsEditing())
        return CFrameWnd::PreTranslateMessage(message);
    ApiComn_sendCommand(isUndo ? L"_U" : L"_REDO", 0, 1, 1);
    GetLeftPane()->Synchronise();
    return TRUE;
}

CEntView* CAttFrameWnd::GetLeftPane() const {
    return static_cast<CEntView*>(paneAt(0));
}

CAttView* CAttFrameWnd::GetRightPane() const {
    return static_cast<CAttView*>(paneAt(1));
}

CWnd* CAttFrameWnd::paneAt(int column) const {
    return column < m_splitter.GetColumnCount() ? m_splitter.GetPane(0, column) : nullptr;
}

CEntView_ZU* CAttFrameWnd_ZU::GetLeftPane() const {
    return static_cast<CEntView_ZU*>(paneAt(0));
}

CAttView_ZU* CAttFrameWnd_ZU::GetRightPane() const {
    return static_cast<CAttView_ZU*>(paneAt(1));
}
