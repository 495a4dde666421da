#pragma once

#include "afx.h"
#include "afxcoll.h"
#include "afxdllx.h"
#include "zuhost/message_box.h"

#include <memory>

class QWidget;
class CFrameWnd;

inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr int SW_SHOW = 5;

inline constexpr DWORD WS_CHILD = 0x40000000;
inline constexpr DWORD WS_VISIBLE = 0x10000000;
inline constexpr DWORD CBS_DROPDOWN = 0x0002;
inline constexpr DWORD CBS_DROPDOWNLIST = 0x0003;

inline constexpr int CB_ERR = -1;

/// A window: the thin owner of a widget of the desktop, which is made by the derived class's Create and goes
/// with the object or with its parent's widget, whichever goes first.
class CWnd : public CObject {
    DECLARE_DYNAMIC(CWnd)

public:
    CWnd();
    ~CWnd() override;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    /// Null while there is no widget.
    [[nodiscard]] HWND GetSafeHwnd() const;
    [[nodiscard]] CWnd* GetParent() const;
    /// The nearest frame above the window; null when there is none.
    [[nodiscard]] CFrameWnd* GetParentFrame() const;
    [[nodiscard]] BOOL IsWindowVisible() const;
    /// Nonzero when the window was visible before.
    BOOL ShowWindow(int command);
    virtual BOOL DestroyWindow();

    [[nodiscard]] QWidget* widget() const;
    /// The window that owns the widget; null for widgets of others.
    static CWnd* fromWidget(const QWidget* widget);

protected:
    /// Takes a widget over.
    void attachWidget(QWidget* widget);

private:
    struct Handle;
    std::unique_ptr<Handle> handle_;
};

/// A top window.
class CFrameWnd : public CWnd {
    DECLARE_DYNCREATE(CFrameWnd)

public:
    CFrameWnd() = default;
    BOOL Create(const wchar_t* className, const wchar_t* title, DWORD style = 0, CWnd* parent = nullptr);
};

/// The host's main frame.
class CMDIFrameWnd : public CFrameWnd {
    DECLARE_DYNCREATE(CMDIFrameWnd)
};

/// A list to choose a text from. Texts are searched for without regard to case.
class CComboBox : public CWnd {
    DECLARE_DYNCREATE(CComboBox)

public:
    CComboBox() = default;
    BOOL Create(DWORD style, const RECT& rectangle, CWnd* parent, UINT id);

    [[nodiscard]] int GetCount() const;
    /// Characters of the item's text; CB_ERR for an item that is not there.
    [[nodiscard]] int GetLBTextLen(int index) const;
    int GetLBText(int index, CString& text) const;
    /// Index of the new item.
    int AddString(const wchar_t* text);
    int InsertString(int index, const wchar_t* text);
    int DeleteString(UINT index);
    void ResetContent();
    /// The first item behind `after` (going round at the end) that equals the text; CB_ERR when there is
    /// none.
    [[nodiscard]] int FindStringExact(int after, const wchar_t* text) const;
    [[nodiscard]] int GetCurSel() const;
    int SetCurSel(int index);
};
