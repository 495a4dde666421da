#pragma once

#include "paint_context.h"
#include "zuhost/windows/widgets.h"
#include "zuhost/windows/wnd.h"

#include <QPainter>
#include <QWidget>

namespace zuhost {

/// Has an owner-drawn list draw one of its rows.
template <typename List>
void drawOwnRow(List& list, QPainter& painter, const QRect& row, int index, UINT state) {
    PaintContext context(painter);
    DRAWITEMSTRUCT draw;
    draw.CtlID = static_cast<UINT>(list.GetDlgCtrlID());
    draw.itemID = static_cast<UINT>(index);
    draw.itemState = state | (list.IsWindowEnabled() != FALSE ? 0U : ODS_DISABLED);
    draw.hwndItem = list.GetSafeHwnd();
    draw.hDC = context.GetSafeHdc();
    draw.rcItem = {row.left(), row.top(), row.left() + row.width(), row.top() + row.height()};
    if constexpr (requires { list.GetItemData(index); })
        draw.itemData = list.GetItemData(index);
    painter.save();
    painter.setFont(zuhost::widgetOf(list)->font());
    list.DrawItem(&draw);
    painter.restore();
}

/// Returns the row height that an owner-drawn list asks for, by default that of the widget's font.
template <typename List>
int ownRowHeight(List& list, const QWidget& widget) {
    MEASUREITEMSTRUCT measure;
    measure.itemHeight = static_cast<UINT>(widget.fontMetrics().height());
    list.MeasureItem(&measure);
    return static_cast<int>(measure.itemHeight);
}

} // namespace zuhost
