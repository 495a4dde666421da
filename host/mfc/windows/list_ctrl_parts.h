#pragma once

#include "afxcmn.h"

#include "report_model.h"

#include <QPointer>
#include <QTreeView>

/// What a list control consists of on the desktop.
struct CListCtrl::Parts {
    zuhost::ReportModel model;
    QPointer<QTreeView> view;
    DWORD extendedStyle = 0;

    [[nodiscard]] QItemSelectionModel* selection() const { return view->selectionModel(); }
    [[nodiscard]] bool has(int index) const { return view != nullptr && model.hasLine(index); }
    [[nodiscard]] UINT state(int index) const {
        return (selection()->isRowSelected(index, {}) ? LVIS_SELECTED : 0U) |
               (view->currentIndex().row() == index ? LVIS_FOCUSED : 0U);
    }

    // A handler may delete the control while its view still emits signals: each call looks the control up.

    /// Sends LVN_ITEMCHANGED for each line of the ranges.
    static void notifyStates(const QWidget* view, const QItemSelection& ranges, UINT before, UINT now);
    static void notifyClick(const QWidget* view, int index, UINT code);
};
