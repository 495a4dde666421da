#include <zucomn/parts_list_views.h>

#include "attribute_lines.h"
#include "attributes/attribute_tables.h"
#include "attributes/views/attribute_pane.h"
#include "frame/module_state.h"

IMPLEMENT_DYNCREATE(CUPAttView, CView)

BEGIN_MESSAGE_MAP(CUPAttView, CView)
ON_WM_CREATE()
ON_WM_SIZE()
END_MESSAGE_MAP()

CUPAttView::CUPAttView() : m_pane(std::make_unique<zu::AttributePane>()) {}
CUPAttView::~CUPAttView() = default;

int CUPAttView::OnCreate(LPCREATESTRUCT create) {
    const zu::ResourceScope scope;
    return CView::OnCreate(create) == -1 || !m_pane->create(*this) ? -1 : 0;
}

void CUPAttView::OnSize(UINT type, int width, int height) {
    CView::OnSize(type, width, height);
    m_pane->resize(width, height);
}

void CUPAttView::OnDraw(CDC* /*dc*/) {}

void CUPAttView::AddListView(const CStringArray& lines, CStringArray* keys) {
    m_lines.Copy(lines);
    m_pane->show(zu::shownItemsOf(lines), keys);
}

/// A program that selects lines and reads at once gets the values of the new selection.
void CUPAttView::showPendingSelection() const {
    const CFrameWnd* const frame = GetParentFrame();
    if (frame == nullptr || frame->IsKindOf(RUNTIME_CLASS(CUPAttFrameWnd)) == FALSE)
        return;
    if (CUPEntView* const lines = static_cast<const CUPAttFrameWnd*>(frame)->GetLeftPane())
        lines->CompleteUpdate();
}

int CUPAttView::GetAttSel(CStringArray& keys, CStringArray& values) {
    showPendingSelection();
    return m_pane->selected(keys, values);
}

void CUPAttView::GetAttAll(CStringArray& keys, CStringArray& values) {
    showPendingSelection();
    m_pane->all(keys, values);
}

void CUPAttView::GetAttAllData(CStringArray& lines) {
    showPendingSelection();
    CStringArray changed;
    changed.Copy(m_lines);
    const zu::ParameterIndex parameters(zu::AttributeTables::instance().parameters());
    zu::applyToLines(changed, m_pane->changedItems(), parameters);
    lines.Append(changed);
}

int CUPAttView::SortCompare(const CPropertyItem& left, const CPropertyItem& right) {
    return zu::compareIds(left.key, right.key);
}
