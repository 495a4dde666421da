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
constexpr zu::EntityList::Column kColumns[] = {
    {zu::text::kElement, 150, 6}, {zu::text::kLayer, 150, 3}, {zu::text::kHandle, 150, 2}};

/// Returns the frame of an entity view; null outside an attribute window.
CAttFrameWnd* attributeWindowOf(const CWnd& view) {
    CFrameWnd* const frame = view.GetParentFrame();
    const bool isAttributeWindow = frame != nullptr && frame->IsKindOf(RUNTIME_CLASS(CAttFrameWnd)) != FALSE;
    return isAttributeWindow ? static_cast<CAttFrameWnd*>(frame) : nullptr;
}

CAttView* attributeViewOf(const CWnd& view) {
    const CAttFrameWnd* const frame = attributeWindowOf(view);
    return frame != nullptr ? frame->GetRightPane() : nullptr;
}

void showStatus(const CWnd& view, const CString& text) {
    if (CAttFrameWnd* const frame = attributeWindowOf(view))
        frame->SetStatus(text);
}

/// Says how many entities are selected, how many of them an edit skips, and how many changed values of the
/// previous selection were not applied.
CString selectionStatus(std::span<const AcDbObjectId> selected, std::size_t lost) {
    CString text;
    text.Format(zu::libraryText(zu::text::kSelectedElements), static_cast<int>(selected.size()));
    const CString locked = zu::lockNotice(zu::lockedAmong(selected), selected.size());
    if (!locked.IsEmpty())
        text += L"  " + locked;
    if (lost == 0)
        return text;
    CString discarded;
    discarded.Format(zu::libraryText(zu::text::kDiscardedChanges), static_cast<int>(lost));
    return text + L"  " + discarded;
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

/// A search that leaves the selection as it is keeps the changed values.
void CEntView::CompleteUpdate() {
    CAttView* const attributes = attributeViewOf(*this);
    if (!m_synchronises || attributes == nullptr)
        return;
    m_synchronises = false;
    if (!attributes->pane().hasChangesOf(zu::spanOf(GetSelectedEntities())))
        Synchronise();
}

void CEntView::Synchronise() {
    m_synchronises = false;
    CAttView* const attributes = attributeViewOf(*this);
    if (attributes == nullptr)
        return;
    const zu::ResourceScope scope;
    const AcArray<AcDbObjectId> selected = GetSelectedEntities();
    const std::size_t lost = attributes->pane().changedItems().size();
    attributes->AddListView(selected, nullptr);
    showStatus(*this, selectionStatus(zu::spanOf(selected), lost));
    attributeWindowOf(*this)->OnSelection(selected);
}

std::size_t CEntView::Filter(const CString& text) {
    const std::size_t matches = m_list->countMatches(text);
    m_list->setFilter(matches > 0 ? text : CString());
    return matches;
}

void CEntView::Select(const AcArray<AcDbObjectId>& entities) {
    m_list->selectEntities(entities);
}

void CEntView::SelectAll() {
    m_list->SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED);
}

void CEntView::FocusList() {
    m_list->SetFocus();
}

void CEntView::OnUpdateAttributes() {
    CompleteUpdate();
    CAttView* const attributes = attributeViewOf(*this);
    if (attributes == nullptr || !attributes->pane().list().EndEdit(true))
        return;
    const zu::ResourceScope scope;
    if (attributes->pane().changedItems().empty())
        return showStatus(*this, zu::libraryText(zu::text::kNothingChanged));
    const AcArray<AcDbObjectId> selected = GetSelectedEntities();
    const zu::EditCounts counts =
        zu::applyToEntities(attributes->pane(), zu::spanOf(selected), zu::LockReport::count);
    attributes->AddListView(selected, nullptr);
    showStatus(*this, zu::describe(counts));
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
