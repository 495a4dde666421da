#pragma once

#include "wnd.h"

#include <zuhost/platform/export.h>

class CDocument;
class CFrameWnd;

/// The identifier of a frame's first pane: the window that fills it.
inline constexpr UINT AFX_IDW_PANE_FIRST = 0xE900;
inline constexpr DWORD AFX_WS_DEFAULT_VIEW = WS_CHILD | WS_VISIBLE | WS_BORDER;

/// Passed to the windows that a frame creates in itself.
struct CCreateContext {
    const CRuntimeClass* m_pNewViewClass = nullptr;
    CFrameWnd* m_pCurrentFrame = nullptr;
};

/// A top-level window. Created with new; deletes itself when its window is destroyed.
class ZUHOST_API CFrameWnd : public CWnd {
    DECLARE_DYNCREATE(CFrameWnd)

public:
    CFrameWnd() = default;
    static const RECT rectDefault; ///< Leaves position and size to the desktop.

    BOOL Create(const wchar_t* className, const wchar_t* title, DWORD style = WS_OVERLAPPEDWINDOW,
                const RECT& rectangle = rectDefault, CWnd* parent = nullptr,
                const wchar_t* menuName = nullptr, DWORD extendedStyle = 0,
                CCreateContext* context = nullptr);
    /// Sends WM_INITIALUPDATE to the views in the frame.
    void InitialUpdateFrame(CDocument* document, BOOL makeVisible);
    /// Fits the first pane to the frame.
    virtual void RecalcLayout(BOOL notify = TRUE);

protected:
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;
    /// Creates the windows in the frame, by default the context's view if any. FALSE cancels the frame's
    /// creation.
    virtual BOOL OnCreateClient(LPCREATESTRUCT create, CCreateContext* context);
    void PostNcDestroy() override;

    int OnCreate(LPCREATESTRUCT create);
    DECLARE_MESSAGE_MAP()
};

/// The host's main frame.
class ZUHOST_API CMDIFrameWnd : public CFrameWnd {
    DECLARE_DYNCREATE(CMDIFrameWnd)
};

/// A window that shows content in a frame. Created through its runtime class; deletes itself when its window
/// is destroyed.
class ZUHOST_API CView : public CWnd {
    DECLARE_DYNAMIC(CView)

protected:
    CView() = default;
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;
    virtual void OnDraw(CDC* dc) = 0;
    /// Called when all windows of the frame exist.
    virtual void OnInitialUpdate() {}
    void paint(CDC& dc) override { OnDraw(&dc); }
    void PostNcDestroy() override;

    LRESULT onInitialUpdate(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()
};
