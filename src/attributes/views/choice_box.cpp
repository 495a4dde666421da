#include "choice_box.h"

#include <algorithm>
#include <array>

namespace zu {

namespace {

constexpr int kMarkWidth = 16;
constexpr int kMargin = 4;

void drawMark(CDC& dc, const CRect& place) {
    constexpr int kHalfSize = 4;
    const CPoint middle((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    const std::array<POINT, 4> diamond{
        POINT{middle.x, middle.y - kHalfSize}, POINT{middle.x + kHalfSize, middle.y},
        POINT{middle.x, middle.y + kHalfSize}, POINT{middle.x - kHalfSize, middle.y}};
    dc.Polygon(diamond.data(), static_cast<int>(diamond.size()));
}

} // namespace

void ChoiceBox::offer(const CString& current, const std::vector<CString>& choices) {
    // The box's own search ignores case.
    const auto found = std::find(choices.begin(), choices.end(), current);
    const bool isOffered = found != choices.end();
    if (!isOffered)
        AddString(current);
    const CClientDC dc(this);
    int width = dc.GetTextExtent(current).cx;
    for (const CString& choice : choices) {
        AddString(choice);
        width = std::max<int>(width, dc.GetTextExtent(choice).cx);
    }
    current_ = isOffered ? static_cast<int>(found - choices.begin()) : 0;
    SetCurSel(current_);
    SetDroppedWidth(static_cast<UINT>(width + kMarkWidth + 2 * kMargin));
}

void ChoiceBox::MeasureItem(LPMEASUREITEMSTRUCT measure) {
    measure->itemHeight += kMargin;
}

void ChoiceBox::DrawItem(LPDRAWITEMSTRUCT draw) {
    const int index = static_cast<int>(draw->itemID);
    const bool isSelected = (draw->itemState & ODS_SELECTED) != 0;
    CDC& dc = *CDC::FromHandle(draw->hDC);
    CRect row(draw->rcItem);
    dc.FillSolidRect(row, GetSysColor(isSelected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    dc.SetTextColor(GetSysColor(isSelected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    if (index == current_)
        drawMark(dc, CRect(row.left, row.top, row.left + kMarkWidth, row.bottom));
    CString text;
    GetLBText(index, text);
    row.left += kMarkWidth;
    dc.DrawText(text, row, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

} // namespace zu
