#include <zucomn/parts_list_views.h>

#include "attributes/views/pane_splitter.h"

#include <zucomn/frame.h>

IMPLEMENT_DYNCREATE(CUPAttFrameWnd, CFrameWnd)

BEGIN_MESSAGE_MAP(CUPAttFrameWnd, CFrameWnd)
ON_WM_CLOSE()
ON_WM_DESTROY()
ON_WM_CANCELMODE()
END_MESSAGE_MAP()

CUPAttFrameWnd::CUPAttFrameWnd() : m_splitter(std::make_unique<zu::PaneSplitter>(L"PartsList")) {}
CUPAttFrameWnd::~CUPAttFrameWnd() = default;

CUPEntView* CUPAttFrameWnd::GetLeftPane() const {
    return m_splitter->GetColumnCount() > 0 ? static_cast<CUPEntView*>(m_splitter->GetPane(0, 0)) : nullptr;
}

CUPAttView* CUPAttFrameWnd::GetRightPane() const {
    return m_splitter->GetColumnCount() > 1 ? static_cast<CUPAttView*>(m_splitter->GetPane(0, 1)) : nullptr;
}

BOOL CUPAttFrameWnd::OnCreateClient(LPCREATESTRUCT /*create*/, CCreateContext* context) {
    const bool made =
        m_splitter->CreateStatic(this, 1, 2) != FALSE &&
        m_splitter->CreateView(0, 0, RUNTIME_CLASS(CUPEntView), CSize(150, 300), context) != FALSE &&
        m_splitter->CreateView(0, 1, RUNTIME_CLASS(CUPAttView), CSize(200, 300), context) != FALSE;
    if (!made) {
        m_splitter->DestroyWindow();
        return FALSE;
    }
    m_splitter->ModifyStyleEx(0, WS_EX_CLIENTEDGE);
    m_splitter->restoreWidth(150);
    return TRUE;
}

BOOL CUPAttFrameWnd::PreTranslateMessage(MSG* message) {
    if (message->message == WM_KEYDOWN && message->wParam == VK_ESCAPE)
        ZuComn_ShowWindow(this, SW_HIDE);
    return CFrameWnd::PreTranslateMessage(message);
}

BOOL CUPAttFrameWnd::DestroyWindow() {
    return CFrameWnd::DestroyWindow();
}

BOOL CUPAttFrameWnd::FrameDestroyWindow() {
    return DestroyWindow();
}

void CUPAttFrameWnd::OnClose() {
    CFrameWnd::OnClose();
}

void CUPAttFrameWnd::OnDestroy() {
    m_splitter->saveWidth();
    CFrameWnd::OnDestroy();
}

void CUPAttFrameWnd::OnCancelMode() {
    CFrameWnd::OnCancelMode();
}
