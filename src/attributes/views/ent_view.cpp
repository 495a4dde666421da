#include "apply.h"
#include "attribute_pane.h"
#include "attributes/model/field_rules.h"
#include "entity_list.h"
#include "frame/library_text.h"
#include "frame/module_state.h"
#include "frame/resource_ids.h"

#include <zucomn/views.h>

IMPLEMENT_DYNCREATE(CEntView, CView)
IMPLEMENT_DYNCREATE(CEntView_ZU, CEntView)

namespace {

constexpr UINT kButtonId = 3001;
constexpr int kButtonWidth = 60;
constexpr int kButtonHeight = 23;
constexpr UINT kSynchronise = WM_APP;
constexpr zu::EntityList::Column kColumns[] = {{zu::text::kElement}, {zu::text::kLayer}};

/// Returns the attribute view in the frame of an entity view; null outside an attribute window.
CAttView* attributeViewOf(const CWnd& view) {
    const CFrameWnd* const frame = view.GetParentFrame();
    const bool isAttributeWindow = frame != nullptr && frame->IsKindOf(RUNTIME_CLASS(CAttFrameWnd)) != FALSE;
    return isAttributeWindow ? static_cast<const CAttFrameWnd*>(frame)->GetRightPane() : nullptr;
}

} // namespace

BEGIN_MESSAGE_MAP(CEntView, CView)
ON_WM_CREATE()
ON_WM_SIZE()
ON_BN_CLICKED(kButtonId, OnUpdateAttributes)
ON_NOTIFY(LVN_ITEMCHANGED, zu::EntityList::kId, OnItemchanged)
ON_MESSAGE(kSynchronise, OnSynchronise)
END_MESSAGE_MAP()

CEntView::CEntView() : m_list(std::make_unique<zu::EntityList>()) {}
CEntView::~CEntView() = default;
CEntView_ZU::CEntView_ZU() = default;
CEntView_ZU::~CEntView_ZU() = default;

int CEntView::OnCreate(LPCREATESTRUCT create) {
    const zu::ResourceScope scope;
    if (CView::OnCreate(create) == -1)
        return -1;
    m_button.Create(zu::libraryText(zu::text::kModify), WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON,
                    CRect(0, 0, kButtonWidth, kButtonHeight), this, kButtonId);
    m_button.SetFont(CFont::FromHandle(static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT))));
    return m_list->create(*this, kColumns) ? 0 : -1;
}

void CEntView::OnSize(UINT type, int width, int height) {
    CView::OnSize(type, width, height);
    m_button.MoveWindow(0, 0, width, kButtonHeight);
    m_list->MoveWindow(0, kButtonHeight, width, height - kButtonHeight);
}

void CEntView::OnDraw(CDC* /*dc*/) {}

void CEntView::SetGroups(std::vector<CEntityGroup> groups) {
    m_list->setGroups(std::move(groups));
}

void CEntView::SetEntities(const AcArray<AcDbObjectId>& entities) {
    SetGroups(zu::groupsOf(entities));
    AddListView();
}

void CEntView::AddListView() {
    m_list->fill();
    Synchronise();
}

AcArray<AcDbObjectId> CEntView::GetSelectedEntities() const {
    return m_list->selectedEntities();
}

/// Selecting several lines notifies once per line; the attribute view is refilled once, by a posted message.
void CEntView::OnItemchanged(NMHDR* header, LRESULT* result) {
    const auto& change = *reinterpret_cast<const NMLISTVIEW*>(header);
    if ((change.uChanged & LVIF_STATE) != 0 && !m_synchronises)
        m_synchronises = PostMessage(kSynchronise) != FALSE;
    *result = 1;
}

LRESULT CEntView::OnSynchronise(WPARAM /*wParam*/, LPARAM /*lParam*/) {
    CompleteUpdate();
    return 0;
}

void CEntView::CompleteUpdate() {
    if (m_synchronises)
        Synchronise();
}

void CEntView::Synchronise() {
    m_synchronises = false;
    if (CAttView* const attributes = attributeViewOf(*this); attributes != nullptr)
        attributes->AddListView(GetSelectedEntities(), nullptr);
}

void CEntView::OnUpdateAttributes() {
    CompleteUpdate();
    CAttView* const attributes = attributeViewOf(*this);
    if (attributes == nullptr || !attributes->pane().list().EndEdit(true))
        return;
    zu::applyToEntities(attributes->pane(), zu::spanOf(GetSelectedEntities()));
    Synchronise();
}

CString CEntView::GetAttDetails(const CString& text, int n) {
    return zu::attributeField(text, n);
}

bool CEntView::IsUpdateEnable(const CString& text) {
    return zu::isEditable(text);
}

bool CEntView::GetAttIDCode(CString& code, const CPtrArray& table, const CString& first,
                            const CString& third) {
    return zu::findIdCode(code, table, first, third);
}
