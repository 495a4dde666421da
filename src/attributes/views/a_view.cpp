#include "apply.h"
#include "attribute_pane.h"
#include "attributes/model/field_rules.h"
#include "frame/module_state.h"

#include <zucomn/views.h>

IMPLEMENT_DYNCREATE(CAView, CView)

BEGIN_MESSAGE_MAP(CAView, CView)
ON_WM_CREATE()
ON_WM_SIZE()
ON_LBN_SELCHANGE(zu::kPropertyListId, OnSelected)
ON_CONTROL(PLN_VALUECHANGED, zu::kPropertyListId, OnUpdateAttributes)
END_MESSAGE_MAP()

CAView::CAView() : m_pane(std::make_unique<zu::AttributePane>(zu::AttributePane::WithoutTable::nothing)) {}
CAView::~CAView() = default;

int CAView::OnCreate(LPCREATESTRUCT create) {
    const zu::ResourceScope scope;
    return CView::OnCreate(create) == -1 || !m_pane->create(*this) ? -1 : 0;
}

void CAView::OnSize(UINT type, int width, int height) {
    CView::OnSize(type, width, height);
    m_pane->resize(width, height);
}

void CAView::OnDraw(CDC* /*dc*/) {}

void CAView::AddListView(AcDbObjectId entity, CStringArray* keys) {
    AcArray<AcDbObjectId> entities;
    entities.append(entity);
    AddListView(entities, keys);
}

void CAView::AddListView(const AcArray<AcDbObjectId>& entities, CStringArray* keys) {
    m_entities = entities;
    m_pane->showEntities(zu::spanOf(m_entities), keys);
}

void CAView::AddGrid(const wchar_t* partFile, CStringArray* keys) {
    m_entities.setLogicalLength(0);
    m_pane->showPart(partFile, keys);
}

int CAView::GetAttSel(CStringArray& keys, CStringArray& values) {
    return m_pane->selected(keys, values);
}

void CAView::GetAttAll(CStringArray& keys, CStringArray& values) {
    m_pane->all(keys, values);
}

void CAView::SetValue(const wchar_t* key, const wchar_t* value) {
    m_pane->setValue(key, value);
}

int CAView::SortCompare(const CPropertyItem& left, const CPropertyItem& right) {
    return zu::compareIds(left.key, right.key);
}

CString CAView::GetAttDetails(const CString& text, int n) {
    return zu::attributeField(text, n);
}

bool CAView::GetAttIDCode(CString& code, const CPtrArray& table, const CString& first, const CString& third) {
    return zu::findIdCode(code, table, first, third);
}

bool CAView::IsUpdateEnable(const CString& text) {
    return zu::isEditable(text);
}

int CAView::layerLockState(AcDbObjectId entity) {
    const zu::ResourceScope scope;
    return zu::warnIfLocked(entity) ? 1 : 0;
}

void CAView::OnSelected() {
    OnSelChangeList(0, 0);
}

long CAView::OnSelChangeList(WPARAM /*wParam*/, LPARAM /*lParam*/) {
    const int item = m_pane->list().GetSelectedItem();
    if (item >= 0 && m_pane->manager().GetItem(item).type == CPropertyItem::kChoiceItem)
        m_pane->list().BeginEdit();
    return 1;
}

void CAView::OnUpdateAttributes() {
    if (m_isUpdating)
        return;
    m_isUpdating = true; // Accepting an edit in progress notifies the view of the changed value.
    const bool isAccepted = m_pane->list().EndEdit(true);
    m_isUpdating = false;
    if (!isAccepted)
        return;
    zu::applyToEntities(*m_pane, zu::spanOf(m_entities));
    if (!m_entities.isEmpty())
        m_pane->showEntities(zu::spanOf(m_entities), nullptr);
}
