#pragma once

#include "../../afxmsg_.h"
#include "gdi.h"

#include <afx.h>
#include <afxcoll.h>

#include <memory>

class QWidget;
class CFrameWnd;
struct CCreateContext;

namespace zuhost {
class WindowLink;
}

/// A window: the thin owner of a widget of the desktop, which is made when the window is created and goes
/// with the object, or with its parent's window, whichever goes first. What happens on the desktop reaches
/// the window as messages, which its message map hands to member functions; a handler that calls its base
/// class's leaves the rest to the desktop.
class CWnd : public CObject {
    DECLARE_DYNAMIC(CWnd)

public:
    CWnd();
    ~CWnd() override;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    /// Makes the window. FALSE, without a window, when a WM_CREATE handler returns -1; FALSE, with nothing
    /// changed, when there is one already.
    BOOL Create(const wchar_t* className, const wchar_t* text, DWORD style, const RECT& rectangle,
                CWnd* parent, UINT id, CCreateContext* context = nullptr);
    /// WM_DESTROY goes to the window and to those in it; PostNcDestroy is the last that each hears. FALSE
    /// when there is no window.
    virtual BOOL DestroyWindow();

    /// Null while there is no window.
    [[nodiscard]] HWND GetSafeHwnd() const;
    [[nodiscard]] static CWnd* FromHandle(HWND window);
    [[nodiscard]] CWnd* GetParent() const;
    /// The nearest frame above the window; null when there is none.
    [[nodiscard]] CFrameWnd* GetParentFrame() const;
    [[nodiscard]] int GetDlgCtrlID() const;
    /// The window's child with the identifier; null when there is none.
    [[nodiscard]] CWnd* GetDlgItem(int id) const;

    [[nodiscard]] BOOL IsWindowVisible() const;
    /// Nonzero when the window was visible before.
    BOOL ShowWindow(int command);
    [[nodiscard]] BOOL IsWindowEnabled() const;
    BOOL EnableWindow(BOOL enable = TRUE);

    void SetWindowText(const wchar_t* text);
    void GetWindowText(CString& text) const;
    /// Null: the desktop's font.
    void SetFont(const CFont* font, BOOL redraw = TRUE);

    void MoveWindow(int x, int y, int width, int height, BOOL redraw = TRUE);
    void MoveWindow(const RECT& rectangle, BOOL redraw = TRUE);
    void GetClientRect(RECT* rectangle) const;
    void ClientToScreen(POINT* point) const;
    void Invalidate(BOOL erase = TRUE);
    void InvalidateRect(const RECT* rectangle, BOOL erase = TRUE);
    void UpdateWindow();
    /// While redrawing is off, changes don't show.
    void SetRedraw(BOOL redraw = TRUE);
    /// WS_EX_CLIENTEDGE gives a sunken edge where the window can have one.
    BOOL ModifyStyleEx(DWORD remove, DWORD add, UINT flags = 0);

    CWnd* SetFocus();
    [[nodiscard]] static CWnd* GetFocus();

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    /// Sent when the desktop is idle, unless the window is gone by then.
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    /// Asked for every key before it reaches the window with the focus, from that window upwards; TRUE takes
    /// it.
    virtual BOOL PreTranslateMessage(MSG* message);

    [[nodiscard]] QWidget* widget() const;
    /// Where the window's own drawing and its children are; differs from the widget in lists that scroll.
    [[nodiscard]] QWidget* clientWidget() const;
    /// The window that owns the widget; null for widgets of others.
    static CWnd* fromWidget(const QWidget* widget);

protected:
    /// The widget for the window, without its place and text.
    [[nodiscard]] virtual QWidget* makeWidget(QWidget* parent, DWORD style);

    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// What the base classes' handlers do: the message that is handled now goes on to the desktop.
    LRESULT Default();
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual void PostNcDestroy() {}
    /// Which part of the window has a tool tip at the point: its number, with the part's rectangle and text
    /// (from malloc) in `tool`; -1 when there is none.
    virtual std::intptr_t OnToolHitTest(CPoint point, TOOLINFO* tool) const;
    virtual void paint(CDC& dc);

    static const AFX_MSGMAP* GetThisMessageMap();
    [[nodiscard]] virtual const AFX_MSGMAP* GetMessageMap() const;

    int OnCreate(LPCREATESTRUCT create);
    void OnDestroy() { Default(); }
    void OnClose() { Default(); }
    void OnCancelMode() { Default(); }
    void OnSysColorChange() { Default(); }
    void OnSize(UINT type, int width, int height);
    void OnSetFocus(CWnd* loser);
    void OnKillFocus(CWnd* winner);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnContextMenu(CWnd* window, CPoint point);

    /// Tells the parent of a control what happened to it.
    void notifyParent(UINT code);
    LRESULT notifyParent(NMHDR& header);
    /// The same for what the control's widget tells: the parent may have ended the control, and the widget
    /// still be at work.
    static void notifyParentOf(const QWidget* widget, UINT code);

private:
    friend class zuhost::WindowLink;

    const AFX_MSGMAP_ENTRY* findHandler(UINT message, UINT code, UINT id) const;
    void destroy(bool tellSelf);

    std::unique_ptr<zuhost::WindowLink> link_;
};
