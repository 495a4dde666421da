#pragma once

#include "../../afxmsg_.h"
#include "gdi.h"

#include <afx.h>
#include <afxcoll.h>
#include <zuhost/platform/export.h>

#include <memory>

class QWidget;
class CFrameWnd;
struct CCreateContext;

namespace zuhost {
class WindowLink;
}

/// A window: a thin owner of a widget of the desktop. The widget is made when the window is created, and
/// destroyed with the object or with the parent's window, whichever comes first. Events of the desktop reach
/// the window as messages, which its message map dispatches to member functions; a handler that calls the one
/// of its base class adds the desktop's default handling.
class ZUHOST_API CWnd : public CObject {
    DECLARE_DYNAMIC(CWnd)

public:
    CWnd();
    ~CWnd() override;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    /// Creates the window. FALSE when a WM_CREATE handler returns -1: the window is destroyed. FALSE with
    /// nothing changed when there is a window already.
    BOOL Create(const wchar_t* className, const wchar_t* text, DWORD style, const RECT& rectangle,
                CWnd* parent, UINT id, CCreateContext* context = nullptr);
    /// Sends WM_DESTROY to the window and to those in it; PostNcDestroy is the last call that each receives.
    /// FALSE when there is no window or its destruction has begun.
    virtual BOOL DestroyWindow();

    /// Null while there is no window.
    [[nodiscard]] HWND GetSafeHwnd() const;
    [[nodiscard]] static CWnd* FromHandle(HWND window);
    [[nodiscard]] CWnd* GetParent() const;
    /// Returns the innermost frame that contains the window; null when there is none.
    [[nodiscard]] CFrameWnd* GetParentFrame() const;
    [[nodiscard]] int GetDlgCtrlID() const;
    /// Returns the window's child with the identifier; null when there is none.
    [[nodiscard]] CWnd* GetDlgItem(int id) const;

    [[nodiscard]] BOOL IsWindowVisible() const;
    /// Returns nonzero when the window was visible before.
    BOOL ShowWindow(int command);
    [[nodiscard]] BOOL IsWindowEnabled() const;
    /// Returns nonzero when the window was disabled before.
    BOOL EnableWindow(BOOL enable = TRUE);

    void SetWindowText(const wchar_t* text);
    void GetWindowText(CString& text) const;
    /// Copies the text, truncated to `size` characters with the final zero; returns the number copied.
    int GetWindowText(wchar_t* buffer, int size) const;
    [[nodiscard]] int GetWindowTextLength() const;

    // The child with an identifier. Without it, functions that read give an empty text or 0, the others do
    // nothing.

    int GetDlgItemText(int id, CString& text) const;
    int GetDlgItemText(int id, wchar_t* buffer, int size) const;
    void SetDlgItemText(int id, const wchar_t* text);
    /// `translated` becomes FALSE for a text that is no number.
    UINT GetDlgItemInt(int id, BOOL* translated = nullptr, BOOL isSigned = TRUE) const;
    void SetDlgItemInt(int id, UINT value, BOOL isSigned = TRUE);
    void CheckDlgButton(int id, UINT check);
    [[nodiscard]] UINT IsDlgButtonChecked(int id) const;

    /// Sends WM_TIMER, or calls the function, in intervals until KillTimer or the window's end. Replaces the
    /// timer with the same identifier. Returns the identifier; 0 when there is no window or `id` is 0.
    UINT_PTR SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC function);
    /// FALSE when there is no such timer.
    BOOL KillTimer(UINT_PTR id);

    /// Shows a message box with the application's title unless there is a caption.
    int MessageBox(const wchar_t* text, const wchar_t* caption = nullptr, UINT style = MB_OK);
    /// Null sets the desktop's font.
    void SetFont(const CFont* font, BOOL redraw = TRUE);

    void MoveWindow(int x, int y, int width, int height, BOOL redraw = TRUE);
    void MoveWindow(const RECT& rectangle, BOOL redraw = TRUE);
    void GetClientRect(RECT* rectangle) const;
    /// On the screen.
    void GetWindowRect(RECT* rectangle) const;
    void ClientToScreen(POINT* point) const;
    void ScreenToClient(POINT* point) const;
    void Invalidate(BOOL erase = TRUE);
    void InvalidateRect(const RECT* rectangle, BOOL erase = TRUE);
    void UpdateWindow();
    /// While redrawing is off, the window is not repainted.
    void SetRedraw(BOOL redraw = TRUE);
    /// WS_EX_CLIENTEDGE adds or removes a sunken edge. FALSE for windows that can't have one.
    BOOL ModifyStyleEx(DWORD remove, DWORD add, UINT flags = 0);

    CWnd* SetFocus();
    [[nodiscard]] static CWnd* GetFocus();

    /// An exception that a handler lets escape is shown in a message box and deleted; the result is 0, or -1
    /// for WM_CREATE.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    /// Queues a message; it is dropped if the window is destroyed before. FALSE when there is no window.
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    /// Called for every key before the window with the focus receives it, first on that window, then on its
    /// parents; TRUE consumes the key.
    virtual BOOL PreTranslateMessage(MSG* message);

protected:
    // zuhost/windows/widgets.h has these for other code.
    [[nodiscard]] QWidget* widget() const;
    [[nodiscard]] QWidget* clientWidget() const;
    static CWnd* fromWidget(const QWidget* widget);

    /// Returns a new widget for the window; the caller sets its position and text.
    [[nodiscard]] virtual QWidget* makeWidget(QWidget* parent, DWORD style);

    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// Passes the message that is being handled to DefWindowProc; the handlers of the base classes call it.
    LRESULT Default();
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual void PostNcDestroy() {}
    /// Returns the number of the window's part at the point that has a tool tip, and its rectangle and text
    /// (allocated by malloc) in `tool`; -1 when there is none.
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
    void OnSetFocus(CWnd* oldFocus);
    void OnKillFocus(CWnd* newFocus);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnContextMenu(CWnd* window, CPoint point);
    void OnTimer(UINT_PTR id);

    /// Notifies the parent of a control with WM_COMMAND or WM_NOTIFY.
    void notifyParent(UINT code);
    LRESULT notifyParent(NMHDR& header);
    /// For signals of a control's widget: does nothing when the control is already destroyed, as the parent
    /// may have done while handling an earlier signal.
    static void notifyParentOf(const QWidget* widget, UINT code);

private:
    friend class zuhost::WindowLink;

    const AFX_MSGMAP_ENTRY* findHandler(UINT message, UINT code, UINT id) const;
    void destroy(bool notifySelf);

    std::unique_ptr<zuhost::WindowLink> link_;
};

/// Returns whether the handle is that of a window.
ZUHOST_API BOOL IsWindow(HWND window);
