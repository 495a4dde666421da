#include <zucomn/parts_list_views.h>

#include "attribute_lines.h"
#include "attributes/model/field_rules.h"
#include "attributes/views/apply.h"
#include "attributes/views/attribute_pane.h"
#include "attributes/views/entity_list.h"
#include "frame/library_text.h"
#include "frame/module_state.h"
#include "frame/resource_ids.h"
#include "frame/text_view.h"
#include "lines_file.h"

#include <arxutil.h>
#include <zucomn/frame.h>

#include <algorithm>

namespace {

constexpr UINT kModify = 3001;
constexpr UINT kConfirm = 3006;
constexpr UINT kBack = 3007;
constexpr int kButtonsBottom = 70;
constexpr UINT kShowSelection = WM_APP + 1; ///< Posted once for all lines that a selection changes.
constexpr zu::EntityList::Column kColumns[] = {{zu::text::kItem, 90, 90}, {zu::text::kValue, 56, 56}};

CString fileName(const CString& path) {
    return path.Mid(std::max(path.ReverseFind(L'\\'), path.ReverseFind(L'/')) + 1);
}

/// Widens a button whose caption its width would clip.
void widenToCaption(CButton& button, const CRect& place) {
    constexpr int kAroundCaption = 12;
    CString caption;
    button.GetWindowText(caption);
    const int wanted = CClientDC(&button).GetTextExtent(caption).cx + kAroundCaption;
    button.MoveWindow(place.left, place.top, std::max(wanted, place.Width()), place.Height());
}

} // namespace

struct CUPEntView::Parts {
    CButton modify;
    CButton confirm;
    CButton back;
    zu::EntityList list;
    CStringArray lines;
    std::vector<zu::LineRange> ranges;
    std::vector<int> shown; ///< Indexes of the lines that the right pane shows.
    CString path;
    CString confirmCommand;
    CString backCommand;
    int flag = 0;
    bool isRouteAttributes = false;
    bool isShowPending = false;

    [[nodiscard]] std::vector<int> selectedLines() const;
    [[nodiscard]] int findSelected(const wchar_t* key) const;
    [[nodiscard]] CString title(std::size_t part) const;
    [[nodiscard]] std::vector<CEntityGroup> groups() const;
};

std::vector<int> CUPEntView::Parts::selectedLines() const {
    std::vector<int> selected;
    for (const auto& [part, row] : list.selectedRows())
        selected.push_back(ranges[part].first + static_cast<int>(row));
    std::sort(selected.begin(), selected.end());
    return selected;
}

int CUPEntView::Parts::findSelected(const wchar_t* key) const {
    const std::wstring_view wanted = key != nullptr ? key : L"";
    for (const int line : selectedLines())
        if (zu::view(lines[line]).starts_with(wanted))
            return line;
    return -1;
}

/// A file with a single part gives the part its name.
CString CUPEntView::Parts::title(std::size_t part) const {
    CString file = fileName(path);
    if (ranges.size() == 1 && !file.IsEmpty())
        return file;
    CString text;
    text.Format(L"%s %d", zu::libraryText(zu::text::kElement), static_cast<int>(part) + 1);
    return text;
}

std::vector<CEntityGroup> CUPEntView::Parts::groups() const {
    std::vector<CEntityGroup> made(ranges.size());
    for (std::size_t part = 0; part < ranges.size(); ++part) {
        made[part].title = title(part);
        for (int line = ranges[part].first; line < ranges[part].first + ranges[part].count; ++line) {
            auto columns = std::make_unique<CStringArray>();
            columns->Add(zu::lineName(lines[line]));
            columns->Add(zu::attributeField(lines[line], 2));
            made[part].rows.push_back({std::move(columns), AcDbObjectId()});
        }
    }
    return made;
}

IMPLEMENT_DYNCREATE(CUPEntView, CView)

BEGIN_MESSAGE_MAP(CUPEntView, CView)
ON_WM_CREATE()
ON_WM_SIZE()
ON_BN_CLICKED(kModify, OnUpdateAttributes)
ON_BN_CLICKED(kConfirm, OnUpdateAttributes2)
ON_BN_CLICKED(kBack, OnUpdateAttributes3)
ON_NOTIFY(LVN_ITEMCHANGED, zu::EntityList::kId, OnItemchanged)
ON_MESSAGE(kShowSelection, onShowSelection)
END_MESSAGE_MAP()

CUPEntView::CUPEntView() : m_parts(std::make_unique<Parts>()) {}
CUPEntView::~CUPEntView() = default;

// ---- window

int CUPEntView::OnCreate(LPCREATESTRUCT create) {
    const zu::ResourceScope scope;
    if (CView::OnCreate(create) == -1)
        return -1;
    CFont* const font = CFont::FromHandle(static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)));
    const struct {
        CButton& button;
        UINT caption;
        UINT id;
        CRect place;
    } buttons[] = {{m_parts->modify, zu::text::kModifyAttributes, kModify, {0, 0, 60, 23}},
                   {m_parts->confirm, zu::text::kConfirmAttributes, kConfirm, {0, 24, 60, 47}},
                   {m_parts->back, zu::text::kBack, kBack, {0, 47, 60, 70}}};
    for (const auto& each : buttons) {
        each.button.Create(zu::libraryText(each.caption), WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, each.place,
                           this, each.id);
        each.button.SetFont(font);
        widenToCaption(each.button, each.place);
    }
    if (!m_parts->list.create(*this, kColumns))
        return -1;
    m_parts->list.SetFont(font);
    return 0;
}

void CUPEntView::OnSize(UINT type, int width, int height) {
    CView::OnSize(type, width, height);
    if (m_parts->list.GetSafeHwnd() != nullptr)
        m_parts->list.MoveWindow(0, kButtonsBottom, width, std::max(height - kButtonsBottom, 0));
}

void CUPEntView::OnDraw(CDC* /*dc*/) {}

void CUPEntView::OnItemchanged(NMHDR* header, LRESULT* result) {
    const auto& change = *reinterpret_cast<const NMLISTVIEW*>(header);
    if ((change.uChanged & LVIF_STATE) != 0 && !m_parts->isShowPending)
        m_parts->isShowPending = PostMessage(kShowSelection) != FALSE;
    *result = 1;
}

LRESULT CUPEntView::onShowSelection(WPARAM /*wParam*/, LPARAM /*lParam*/) {
    CompleteUpdate();
    return 0;
}

void CUPEntView::CompleteUpdate() {
    if (m_parts->isShowPending)
        DataDisp();
}

// ---- file, commands, flag

int CUPEntView::ReadCSVFile(const wchar_t* path) {
    CStringArray lines;
    if (!zu::readLines(path, lines))
        return -1;
    SetFilePath(path);
    AddListView(lines);
    return 0;
}

void CUPEntView::SetFilePath(const wchar_t* path) {
    m_parts->path = path;
    m_parts->isRouteAttributes = zu::isRouteAttributeFile(m_parts->path);
}

CString CUPEntView::GetFilePath() const {
    return m_parts->path;
}

void CUPEntView::SetCommands(const wchar_t* confirm, const wchar_t* back) {
    m_parts->confirmCommand = confirm;
    m_parts->backCommand = back;
}

void CUPEntView::SetFlag(int flag) {
    m_parts->flag = flag;
}

int CUPEntView::GetFlag() const {
    return m_parts->flag;
}

bool CUPEntView::IsRouteAttributeMode() const {
    return m_parts->isRouteAttributes;
}

// ---- list

void CUPEntView::AddListView(const CStringArray& lines) {
    m_parts->lines.Copy(lines);
    AddListView();
}

void CUPEntView::AddListView() {
    m_parts->ranges = zu::partsOf(m_parts->lines);
    m_parts->list.setGroups(m_parts->groups());
    m_parts->list.fill();
    DataDisp();
}

const CStringArray& CUPEntView::GetLines() const {
    return m_parts->lines;
}

void CUPEntView::SSAdd(int row) {
    m_parts->list.SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
}

void CUPEntView::SSDel(int row) {
    m_parts->list.SetItemState(row, 0, LVIS_SELECTED);
}

void CUPEntView::SelectChild(int row) {
    m_parts->list.selectRowsBelow(row);
}

// ---- values

void CUPEntView::DataDisp() {
    Parts& parts = *m_parts;
    parts.isShowPending = false;
    parts.shown = parts.selectedLines();
    CStringArray lines;
    for (const int line : parts.shown)
        lines.Add(parts.lines[line]);
    if (CUPAttView* const right = rightPane())
        right->AddListView(lines, nullptr);
}

CUPAttView* CUPEntView::rightPane() const {
    CFrameWnd* const frame = GetParentFrame();
    return frame != nullptr && frame->IsKindOf(RUNTIME_CLASS(CUPAttFrameWnd)) != FALSE
               ? static_cast<CUPAttFrameWnd*>(frame)->GetRightPane()
               : nullptr;
}

int CUPEntView::GetAtAtt(const wchar_t* key, CString& out) const {
    const int line = m_parts->findSelected(key);
    if (line < 0)
        return -1;
    out = m_parts->lines[line];
    return 0;
}

int CUPEntView::SetAtAtt(const wchar_t* key, const wchar_t* value) {
    const int line = m_parts->findSelected(key);
    if (line < 0 || !zu::canHold(value))
        return -1;
    m_parts->lines[line] = zu::withValue(m_parts->lines[line], value);
    refreshLines();
    return 0;
}

/// Keeps the selection and expansion of the list.
void CUPEntView::refreshLines() {
    m_parts->list.updateTexts(m_parts->groups());
    DataDisp();
}

void CUPEntView::SetAtAtt3Space(CStringArray& lines) {
    for (int i = 0; i < lines.GetSize(); ++i)
        lines[i] = zu::paddedLine(lines[i]);
}

CString CUPEntView::GetAttDetails(const CString& text, int n) {
    return zu::attributeField(text, n);
}

bool CUPEntView::IsUpdateEnable(const CString& text) {
    return zu::isEditable(text);
}

bool CUPEntView::GetAttIDCode(CString& code, const CPtrArray& table, const CString& first,
                              const CString& third) {
    return zu::findIdCode(code, table, first, third);
}

int CUPEntView::layerLockState(AcDbObjectId entity) {
    return zu::warnIfLocked(entity) ? 1 : 0;
}

// ---- commands

void CUPEntView::SaveCSVFile() {
    save();
}

bool CUPEntView::save() {
    if (m_parts->path.IsEmpty())
        return true;
    m_parts->isRouteAttributes = zu::isRouteAttributeFile(m_parts->path);
    if (zu::saveLines(m_parts->path, m_parts->lines))
        return true;
    CString message;
    message.Format(zu::libraryText(zu::text::kCannotSave), m_parts->path);
    AfxMessageBox(message, MB_OK | MB_ICONSTOP);
    return false;
}

/// Copies the values of the right pane into the lines shown there. Returns false when the edited value cannot
/// be accepted.
bool CUPEntView::acceptValues() {
    CUPAttView* const right = rightPane();
    if (right == nullptr || m_parts->isShowPending)
        return true; // The right pane does not show the selected lines.
    if (!right->pane().list().EndEdit(true))
        return false;
    CStringArray changed;
    right->GetAttAllData(changed);
    for (int i = 0; i < std::min(changed.GetSize(), static_cast<int>(m_parts->shown.size())); ++i)
        m_parts->lines[m_parts->shown[static_cast<std::size_t>(i)]] = changed[i];
    refreshLines();
    return true;
}

void CUPEntView::OnUpdateAttributes() {
    acceptValues();
}

void CUPEntView::OnUpdateAttributes2() {
    if (acceptValues() && save())
        sendToHost(m_parts->confirmCommand);
}

void CUPEntView::OnUpdateAttributes3() {
    if (m_parts->isRouteAttributes || (acceptValues() && save()))
        sendToHost(m_parts->backCommand);
}

void CUPEntView::sendToHost(const CString& command) {
    if (!command.IsEmpty())
        ApiComn_sendCommand(command, 0, 0, 1);
    if (m_parts->isRouteAttributes)
        ZuComn_ShowWindow(this, SW_HIDE);
}
