#pragma once

#include "afxwin.h"

#include <zuhost/platform/export.h>

/// A window split into one row or one column of panes, with bars between them that the user can drag.
class ZUHOST_API CSplitterWnd : public CWnd {
    DECLARE_DYNCREATE(CSplitterWnd)

public:
    CSplitterWnd();
    ~CSplitterWnd() override;

    /// FALSE unless there is one row or one column, of at most 16 panes, or when the window can't be created.
    BOOL CreateStatic(CWnd* parent, int rows, int columns, DWORD style = WS_CHILD | WS_VISIBLE,
                      UINT id = AFX_IDW_PANE_FIRST);
    /// Creates the window of a pane; panes are created in order. FALSE when the pane is out of order or has a
    /// window, or when the window can't be created.
    /// Throws CInvalidArgException when there is no such pane, as do all functions that take a pane.
    BOOL CreateView(int row, int column, const CRuntimeClass* viewClass, SIZE size, CCreateContext* context);
    /// Returns the pane's window; null while it is empty.
    [[nodiscard]] CWnd* GetPane(int row, int column) const;
    [[nodiscard]] int GetRowCount() const { return rows_; }
    [[nodiscard]] int GetColumnCount() const { return columns_; }
    [[nodiscard]] int IdFromRowCol(int row, int column) const;
    void SetColumnInfo(int column, int ideal, int minimum);
    void GetColumnInfo(int column, int& ideal, int& minimum) const;
    void RecalcLayout();

protected:
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;
    /// Called when the user has moved a bar.
    virtual void StopTracking(BOOL /*accept*/) {}

private:
    struct Pane {
        CWnd* window = nullptr;
        int ideal = 0;
        int minimum = 0;
    };
    [[nodiscard]] Pane& pane(int row, int column);

    int rows_ = 0;
    int columns_ = 0;
    std::vector<Pane> panes_;
};

inline constexpr UINT AFX_IDW_STATUS_BAR = 0xE801;
inline constexpr UINT AFX_IDW_REBAR = 0xE804;

/// The line of text at the bottom of a frame.
class ZUHOST_API CStatusBar : public CWnd {
    DECLARE_DYNCREATE(CStatusBar)

public:
    CStatusBar() = default;
    ~CStatusBar() override;
    BOOL Create(CWnd* frame, DWORD style = WS_CHILD | WS_VISIBLE, UINT id = AFX_IDW_STATUS_BAR);
    /// There is one pane, number 0.
    BOOL SetPaneText(int index, const wchar_t* text, BOOL update = TRUE);
    [[nodiscard]] CString GetPaneText(int index) const;

protected:
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;
};

/// A row of controls at the top of a frame. The frame receives their notifications.
class ZUHOST_API CReBar : public CWnd {
    DECLARE_DYNCREATE(CReBar)

public:
    CReBar() = default;
    ~CReBar() override;
    BOOL Create(CWnd* frame, DWORD controlStyle = 0, DWORD style = WS_CHILD | WS_VISIBLE,
                UINT id = AFX_IDW_REBAR);
    /// Appends a control that was created with the bar as its parent.
    BOOL AddBar(CWnd* control, const wchar_t* text = nullptr);

protected:
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
};
