#pragma once

#include "afxwin.h"

/// A window that is split into one row or one column of panes, with bars between them that the user drags.
class CSplitterWnd : public CWnd {
    DECLARE_DYNCREATE(CSplitterWnd)

public:
    CSplitterWnd();
    ~CSplitterWnd() override;

    /// FALSE unless there is one row or one column.
    BOOL CreateStatic(CWnd* parent, int rows, int columns, DWORD style = WS_CHILD | WS_VISIBLE,
                      UINT id = AFX_IDW_PANE_FIRST);
    /// Makes the window of a pane; panes are made in order. FALSE when there is no such pane, it has its
    /// window, or that window can't be made.
    BOOL CreateView(int row, int column, const CRuntimeClass* viewClass, SIZE size, CCreateContext* context);
    /// Throws the framework's invalid-argument exception when there is no such pane; null while it is empty.
    [[nodiscard]] CWnd* GetPane(int row, int column) const;
    [[nodiscard]] int GetRowCount() const { return rows_; }
    [[nodiscard]] int GetColumnCount() const { return columns_; }
    [[nodiscard]] int IdFromRowCol(int row, int column) const;
    void SetColumnInfo(int column, int ideal, int minimum);
    void GetColumnInfo(int column, int& ideal, int& minimum) const;
    void RecalcLayout();

protected:
    [[nodiscard]] QWidget* makeWidget(QWidget* parent, DWORD style) override;

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
