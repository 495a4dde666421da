#include "afxext.h"
#include "zuhost/windows/widgets.h"

#include <QSplitter>

#include <algorithm>

IMPLEMENT_DYNCREATE(CSplitterWnd, CWnd)

namespace {

/// In a row or a column; also the distance of the identifiers of two rows.
constexpr int kMaxPanes = 16;

QSplitter* splitter(const CWnd& window) {
    return static_cast<QSplitter*>(zuhost::widgetOf(window));
}

} // namespace

CSplitterWnd::CSplitterWnd() = default;
CSplitterWnd::~CSplitterWnd() = default;

QWidget* CSplitterWnd::makeWidget(QWidget* parent, DWORD /*style*/) {
    auto* const made = new QSplitter(columns_ > 1 ? Qt::Horizontal : Qt::Vertical, parent);
    made->setChildrenCollapsible(false);
    QObject::connect(made, &QSplitter::splitterMoved, made, [this, made] {
        if (fromWidget(made) == this)
            StopTracking(TRUE);
    });
    return made;
}

BOOL CSplitterWnd::CreateStatic(CWnd* parent, int rows, int columns, DWORD style, UINT id) {
    if (rows < 1 || columns < 1 || (rows > 1 && columns > 1) || rows > kMaxPanes || columns > kMaxPanes)
        return FALSE;
    rows_ = rows;
    columns_ = columns;
    panes_.assign(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns), Pane{});
    return Create(nullptr, nullptr, style, CRect(), parent, id);
}

CSplitterWnd::Pane& CSplitterWnd::pane(int row, int column) {
    if (row < 0 || row >= rows_ || column < 0 || column >= columns_)
        AfxThrowInvalidArgException();
    return panes_[static_cast<std::size_t>(std::max(row, column))];
}

CWnd* CSplitterWnd::GetPane(int row, int column) const {
    return const_cast<CSplitterWnd*>(this)->pane(row, column).window;
}

int CSplitterWnd::IdFromRowCol(int row, int column) const {
    return static_cast<int>(AFX_IDW_PANE_FIRST) + row * kMaxPanes + column;
}

BOOL CSplitterWnd::CreateView(int row, int column, const CRuntimeClass* viewClass, SIZE size,
                              CCreateContext* context) {
    Pane& made = pane(row, column);
    const bool inOrder = splitter(*this) != nullptr && splitter(*this)->count() == row * columns_ + column;
    if (made.window != nullptr || !inOrder || viewClass == nullptr)
        return FALSE;
    CObject* const object = viewClass->CreateObject();
    if (object == nullptr || object->IsKindOf(RUNTIME_CLASS(CWnd)) == FALSE) {
        delete object;
        return FALSE;
    }
    auto* const window = static_cast<CWnd*>(object);
    if (window->Create(nullptr, nullptr, AFX_WS_DEFAULT_VIEW, CRect(0, 0, size.cx, size.cy), this,
                       static_cast<UINT>(IdFromRowCol(row, column)), context) == FALSE)
        return FALSE;
    made = {window, columns_ > 1 ? size.cx : size.cy, 0};
    RecalcLayout();
    return TRUE;
}

void CSplitterWnd::SetColumnInfo(int column, int ideal, int minimum) {
    Pane& changed = pane(0, column);
    changed.ideal = ideal;
    changed.minimum = minimum;
    if (changed.window != nullptr)
        zuhost::widgetOf(*changed.window)->setMinimumWidth(minimum);
    RecalcLayout();
}

void CSplitterWnd::GetColumnInfo(int column, int& ideal, int& minimum) const {
    const Pane& info = const_cast<CSplitterWnd*>(this)->pane(0, column);
    ideal = info.window != nullptr ? zuhost::widgetOf(*info.window)->width() : info.ideal;
    minimum = info.minimum;
}

/// The last pane takes the space that the others leave.
void CSplitterWnd::RecalcLayout() {
    if (splitter(*this) == nullptr || splitter(*this)->count() != static_cast<int>(panes_.size()))
        return;
    QList<int> sizes;
    for (const Pane& each : panes_)
        sizes << each.ideal;
    splitter(*this)->setStretchFactor(splitter(*this)->count() - 1, 1);
    splitter(*this)->setSizes(sizes);
}
