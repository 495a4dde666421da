#pragma once

#include "../../atltypes.h"
#include "../../winuser.h"

#include <afxstr.h>
#include <zuhost/platform/export.h>

#include <memory>

class CWnd;
class QFont;
class QPainter;

struct HFONT__;
using HFONT = HFONT__*;

inline constexpr LONG FW_NORMAL = 400;
inline constexpr LONG FW_BOLD = 700;

struct LOGFONTW {
    LONG lfHeight = 0; ///< In pixels, the sign is ignored; 0 for the height of the desktop's font.
    LONG lfWeight = FW_NORMAL;
    wchar_t lfFaceName[32] = {};
};
using LOGFONT = LOGFONTW;

class ZUHOST_API CFont {
public:
    CFont();
    ~CFont();
    CFont(const CFont&) = delete;
    CFont& operator=(const CFont&) = delete;

    BOOL CreateFontIndirect(const LOGFONT* description);
    int GetLogFont(LOGFONT* description) const;
    static CFont* FromHandle(HFONT font);

private:
    friend class CDC;
    friend class CWnd;
    [[nodiscard]] const QFont& font() const { return *font_; }

    std::unique_ptr<QFont> font_;
};

inline constexpr UINT DT_LEFT = 0x0000;
inline constexpr UINT DT_CENTER = 0x0001;
inline constexpr UINT DT_RIGHT = 0x0002;
inline constexpr UINT DT_VCENTER = 0x0004;
inline constexpr UINT DT_SINGLELINE = 0x0020;
inline constexpr UINT DT_NOPREFIX = 0x0800;
inline constexpr UINT DT_END_ELLIPSIS = 0x8000;

/// Draws on a window while it is painted.
class ZUHOST_API CDC {
public:
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;

    /// Returns the context of a DRAWITEMSTRUCT, valid while the item is drawn.
    [[nodiscard]] static CDC* FromHandle(HDC dc) { return reinterpret_cast<CDC*>(dc); }
    [[nodiscard]] HDC GetSafeHdc() { return reinterpret_cast<HDC>(this); }

    void FillSolidRect(const RECT& rectangle, COLORREF color);
    void DrawFocusRect(const RECT& rectangle);
    COLORREF SetTextColor(COLORREF color);
    void SelectObject(const CFont* font);
    /// Draws a line of text in the rectangle and returns its height; DT_END_ELLIPSIS shortens a text that
    /// does not fit and ends it in "...".
    int DrawText(const CString& text, const RECT& rectangle, UINT format);
    [[nodiscard]] CSize GetTextExtent(const CString& text) const;
    /// Fills the polygon with the text's colour.
    void Polygon(const POINT* points, int count);

protected:
    explicit CDC(QPainter& painter) : painter_(&painter) {}

private:
    QPainter* painter_;
    COLORREF textColor_ = 0;
};

/// Measures text in a window's font outside painting; drawing on it has no visible effect.
class ZUHOST_API CClientDC : public CDC {
public:
    explicit CClientDC(const CWnd* window);
    ~CClientDC();
    CClientDC(const CClientDC&) = delete;
    CClientDC& operator=(const CClientDC&) = delete;

private:
    struct Surface;
    explicit CClientDC(std::unique_ptr<Surface> surface, const CWnd* window);

    std::unique_ptr<Surface> surface_;
};
