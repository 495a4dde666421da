#include "zuhost/windows/gdi.h"

#include "dispatch.h"
#include "qt_text.h"
#include "zuhost/desktop.h"
#include "zuhost/windows/widgets.h"
#include "zuhost/windows/wnd.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QWidget>

#include <algorithm>
#include <span>
#include <string_view>

namespace {

QRect toQt(const RECT& rectangle) {
    return {rectangle.left, rectangle.top, rectangle.right - rectangle.left,
            rectangle.bottom - rectangle.top};
}

QColor toQt(COLORREF color) {
    return {static_cast<int>(color & 0xFFU), static_cast<int>(color >> 8 & 0xFFU),
            static_cast<int>(color >> 16 & 0xFFU)};
}

int alignment(UINT format) {
    const auto across = (format & DT_CENTER) != 0  ? Qt::AlignHCenter
                        : (format & DT_RIGHT) != 0 ? Qt::AlignRight
                                                   : Qt::AlignLeft;
    const auto down = (format & DT_VCENTER) != 0 ? Qt::AlignVCenter : Qt::AlignTop;
    return static_cast<int>(across) | static_cast<int>(down) | static_cast<int>(Qt::TextSingleLine);
}

QPalette::ColorRole roleOf(int index) {
    switch (index) {
    case COLOR_WINDOW:
        return QPalette::Base;
    case COLOR_HIGHLIGHT:
        return QPalette::Highlight;
    case COLOR_HIGHLIGHTTEXT:
        return QPalette::HighlightedText;
    case COLOR_BTNFACE:
        return QPalette::Button;
    case COLOR_BTNSHADOW:
        return QPalette::Mid;
    case COLOR_BTNTEXT:
        return QPalette::ButtonText;
    default:
        return QPalette::Text;
    }
}

} // namespace

// ---- fonts

CFont::CFont() : font_(std::make_unique<QFont>(QApplication::font())) {}

CFont::~CFont() = default;

BOOL CFont::CreateFontIndirect(const LOGFONT* description) {
    if (description->lfHeight != 0)
        font_->setPixelSize(std::abs(description->lfHeight));
    font_->setBold(description->lfWeight >= FW_BOLD);
    if (description->lfFaceName[0] != L'\0')
        font_->setFamily(zuhost::toQt(description->lfFaceName));
    return TRUE;
}

int CFont::GetLogFont(LOGFONT* description) const {
    *description = {};
    description->lfHeight = -QFontInfo(*font_).pixelSize();
    description->lfWeight = font_->bold() ? FW_BOLD : FW_NORMAL;
    const std::wstring family = font_->family().toStdWString();
    family.copy(description->lfFaceName, std::size(description->lfFaceName) - 1);
    return sizeof(LOGFONT);
}

CFont* CFont::FromHandle(HFONT font) {
    return reinterpret_cast<CFont*>(font);
}

void* GetStockObject(int index) {
    if (index != DEFAULT_GUI_FONT)
        return nullptr;
    zuhost::ensureDesktop();
    static CFont font;
    return &font;
}

// ---- drawing

void CDC::FillSolidRect(const RECT& rectangle, COLORREF color) {
    painter_->fillRect(toQt(rectangle), toQt(color));
}

void CDC::DrawFocusRect(const RECT& rectangle) {
    QStyleOptionFocusRect option;
    option.rect = toQt(rectangle);
    option.state = QStyle::State_KeyboardFocusChange | QStyle::State_Enabled;
    option.palette = QApplication::palette();
    QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, painter_);
}

COLORREF CDC::SetTextColor(COLORREF color) {
    return std::exchange(textColor_, color);
}

void CDC::SelectObject(const CFont* font) {
    painter_->setFont(font->font());
}

int CDC::DrawText(const CString& text, const RECT& rectangle, UINT format) {
    const QFontMetrics metrics = painter_->fontMetrics();
    QString shown = zuhost::toQt(text);
    if ((format & DT_END_ELLIPSIS) != 0)
        shown = metrics.elidedText(shown, Qt::ElideRight, CRect(rectangle).Width());
    painter_->setPen(toQt(textColor_));
    painter_->drawText(toQt(rectangle), alignment(format), shown);
    return metrics.height();
}

CSize CDC::GetTextExtent(const CString& text) const {
    const QFontMetrics metrics = painter_->fontMetrics();
    return {metrics.horizontalAdvance(zuhost::toQt(text)), metrics.height()};
}

void CDC::Polygon(const POINT* points, int count) {
    QPolygonF polygon;
    for (const POINT& point : std::span(points, static_cast<std::size_t>(std::max(count, 0))))
        polygon << QPointF(point.x, point.y);
    painter_->save();
    painter_->setRenderHint(QPainter::Antialiasing);
    painter_->setPen(Qt::NoPen);
    painter_->setBrush(toQt(textColor_));
    painter_->drawPolygon(polygon);
    painter_->restore();
}

// ---- measuring

struct CClientDC::Surface {
    QImage image{1, 1, QImage::Format_RGB32};
    QPainter painter{&image};
};

CClientDC::CClientDC(const CWnd* window) : CClientDC(std::make_unique<Surface>(), window) {}

CClientDC::CClientDC(std::unique_ptr<Surface> surface, const CWnd* window)
    : CDC(surface->painter), surface_(std::move(surface)) {
    if (zuhost::widgetOf(*window) != nullptr)
        surface_->painter.setFont(zuhost::widgetOf(*window)->font());
}

CClientDC::~CClientDC() = default;

// ---- colours and cursors

COLORREF GetSysColor(int index) {
    zuhost::ensureDesktop();
    const auto group = index == COLOR_GRAYTEXT ? QPalette::Disabled : QPalette::Active;
    const QColor color = QApplication::palette().color(group, roleOf(index));
    return RGB(static_cast<BYTE>(color.red()), static_cast<BYTE>(color.green()),
               static_cast<BYTE>(color.blue()));
}

HCURSOR LoadCursorW(HINSTANCE /*instance*/, const wchar_t* name) {
    static Qt::CursorShape arrow = Qt::ArrowCursor;
    static Qt::CursorShape horizontal = Qt::SizeHorCursor;
    if (std::wstring_view(name) == IDC_SIZEWE)
        return reinterpret_cast<HCURSOR>(&horizontal);
    return std::wstring_view(name) == IDC_ARROW ? reinterpret_cast<HCURSOR>(&arrow) : nullptr;
}

HCURSOR SetCursor(HCURSOR cursor) {
    const zuhost::Dispatch* const now = zuhost::Dispatch::current();
    QWidget* const window = now != nullptr ? zuhost::clientWidgetOf(now->window) : nullptr;
    if (window == nullptr || cursor == nullptr)
        return nullptr;
    window->setCursor(*reinterpret_cast<const Qt::CursorShape*>(cursor));
    return cursor;
}
