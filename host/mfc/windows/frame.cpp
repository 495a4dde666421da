#include "zuhost/windows/frame.h"
#include "dispatch.h"
#include "zuhost/windows/widgets.h"

#include <QMainWindow>
#include <QPointer>

IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)
IMPLEMENT_DYNCREATE(CMDIFrameWnd, CFrameWnd)

BEGIN_MESSAGE_MAP(CFrameWnd, CWnd)
ON_WM_CREATE()
END_MESSAGE_MAP()

const RECT CFrameWnd::rectDefault{};

BOOL CFrameWnd::Create(const wchar_t* className, const wchar_t* title, DWORD style, const RECT& rectangle,
                       CWnd* parent, const wchar_t* /*menuName*/, DWORD /*extendedStyle*/,
                       CCreateContext* context) {
    return CWnd::Create(className, title, style, rectangle, parent, 0, context);
}

QWidget* CFrameWnd::makeWidget(QWidget* parent, DWORD /*style*/) {
    return new QMainWindow(parent);
}

int CFrameWnd::OnCreate(LPCREATESTRUCT create) {
    if (CWnd::OnCreate(create) == -1)
        return -1;
    CCreateContext own;
    auto* context = static_cast<CCreateContext*>(create->lpCreateParams);
    if (context == nullptr)
        context = &own;
    context->m_pCurrentFrame = this;
    if (OnCreateClient(create, context) == FALSE)
        return -1;
    RecalcLayout();
    return 0;
}

BOOL CFrameWnd::OnCreateClient(LPCREATESTRUCT /*create*/, CCreateContext* context) {
    if (context->m_pNewViewClass == nullptr)
        return TRUE;
    CObject* const made = context->m_pNewViewClass->CreateObject();
    if (made == nullptr || made->IsKindOf(RUNTIME_CLASS(CWnd)) == FALSE) {
        delete made;
        return FALSE;
    }
    return static_cast<CWnd*>(made)->Create(nullptr, nullptr, AFX_WS_DEFAULT_VIEW, rectDefault, this,
                                            AFX_IDW_PANE_FIRST, context);
}

void CFrameWnd::RecalcLayout(BOOL /*notify*/) {
    const CWnd* const pane = GetDlgItem(static_cast<int>(AFX_IDW_PANE_FIRST));
    auto* const frame = qobject_cast<QMainWindow*>(widget());
    if (pane != nullptr && frame != nullptr && frame->centralWidget() != zuhost::widgetOf(*pane))
        frame->setCentralWidget(zuhost::widgetOf(*pane));
}

void CFrameWnd::InitialUpdateFrame(CDocument* /*document*/, BOOL makeVisible) {
    const QPointer<QWidget> own = widget();
    if (own == nullptr)
        return;
    // The dispatch defers the deletion of widgets: a view may destroy others in the list.
    const zuhost::Dispatch dispatch(*this, WM_INITIALUPDATE, 0, 0);
    for (QWidget* const inner : own->findChildren<QWidget*>())
        if (CWnd* const window = fromWidget(inner);
            window != nullptr && window->IsKindOf(RUNTIME_CLASS(CView)) != FALSE)
            window->SendMessage(WM_INITIALUPDATE);
    if (makeVisible != FALSE && fromWidget(own) != nullptr)
        ShowWindow(SW_SHOW);
}

void CFrameWnd::PostNcDestroy() {
    delete this;
}

// ---- views

IMPLEMENT_DYNAMIC(CView, CWnd)

BEGIN_MESSAGE_MAP(CView, CWnd)
ON_MESSAGE(WM_INITIALUPDATE, onInitialUpdate)
END_MESSAGE_MAP()

QWidget* CView::makeWidget(QWidget* parent, DWORD /*style*/) {
    auto* const widget = new QWidget(parent);
    widget->setAutoFillBackground(true);
    return widget;
}

void CView::PostNcDestroy() {
    delete this;
}

LRESULT CView::onInitialUpdate(WPARAM /*wParam*/, LPARAM /*lParam*/) {
    OnInitialUpdate();
    return 0;
}
