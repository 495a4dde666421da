#include "attribute_pane.h"
#include "frame/module_state.h"

#include <zucomn/views.h>

IMPLEMENT_DYNCREATE(CAttView, CView)
IMPLEMENT_DYNCREATE(CAttView_ZU, CAttView)

BEGIN_MESSAGE_MAP(CAttView, CView)
ON_WM_CREATE()
ON_WM_SIZE()
END_MESSAGE_MAP()

CAttView::CAttView() : m_pane(std::make_unique<zu::AttributePane>()) {}
CAttView::~CAttView() = default;

CAttView_ZU::CAttView_ZU() = default;
CAttView_ZU::~CAttView_ZU() = default;

int CAttView::OnCreate(LPCREATESTRUCT create) {
    const zu::ResourceScope scope;
    return CView::OnCreate(create) == -1 || !m_pane->create(*this) ? -1 : 0;
}

void CAttView::OnSize(UINT type, int width, int height) {
    CView::OnSize(type, width, height);
    m_pane->resize(width, height);
}

void CAttView::OnDraw(CDC* /*dc*/) {}

void CAttView::AddListView(AcDbObjectId entity, CStringArray* keys) {
    m_pane->showEntities({&entity, 1}, keys);
}

void CAttView::AddListView(const AcArray<AcDbObjectId>& entities, CStringArray* keys) {
    m_pane->showEntities(zu::spanOf(entities), keys);
}

void CAttView::AddGrid(const wchar_t* partFile, CStringArray* keys) {
    m_pane->showPart(partFile, keys);
}

/// A program that selects entities and reads at once gets the values of the new selection.
void CAttView::showPendingSelection() const {
    const CFrameWnd* const frame = GetParentFrame();
    if (frame == nullptr || frame->IsKindOf(RUNTIME_CLASS(CAttFrameWnd)) == FALSE)
        return;
    if (CEntView* const entities = static_cast<const CAttFrameWnd*>(frame)->GetLeftPane())
        entities->CompleteUpdate();
}

int CAttView::GetAttSel(CStringArray& keys, CStringArray& values) {
    showPendingSelection();
    return m_pane->selected(keys, values);
}

void CAttView::GetAttAll(CStringArray& keys, CStringArray& values) {
    showPendingSelection();
    m_pane->all(keys, values);
}

void CAttView::SetValue(const wchar_t* key, const wchar_t* value) {
    showPendingSelection();
    m_pane->setValue(key, value);
}

int CAttView::SortCompare(const CPropertyItem& left, const CPropertyItem& right) {
    return zu::compareIds(left.key, right.key);
}
