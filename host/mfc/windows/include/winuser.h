#pragma once

#include <windows.h>
#include <zuhost/platform/export.h>

// Windows, messages and styles, under the platform's own names. Sizes and positions are in logical pixels:
// the desktop scales them to the screen.

// ---- messages

inline constexpr UINT WM_CREATE = 0x0001;
inline constexpr UINT WM_DESTROY = 0x0002;
inline constexpr UINT WM_SIZE = 0x0005;
inline constexpr UINT WM_SETFOCUS = 0x0007;
inline constexpr UINT WM_KILLFOCUS = 0x0008;
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_SYSCOLORCHANGE = 0x0015;
inline constexpr UINT WM_CANCELMODE = 0x001F;
inline constexpr UINT WM_NOTIFY = 0x004E;
inline constexpr UINT WM_CONTEXTMENU = 0x007B;
inline constexpr UINT WM_KEYDOWN = 0x0100;
inline constexpr UINT WM_KEYUP = 0x0101;
inline constexpr UINT WM_CHAR = 0x0102;
inline constexpr UINT WM_COMMAND = 0x0111;
inline constexpr UINT WM_TIMER = 0x0113;
inline constexpr UINT WM_VSCROLL = 0x0115;
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;
inline constexpr UINT WM_LBUTTONUP = 0x0202;
inline constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
inline constexpr UINT WM_RBUTTONDOWN = 0x0204;
inline constexpr UINT WM_INITIALUPDATE = 0x0364;
inline constexpr UINT WM_USER = 0x0400;
inline constexpr UINT WM_APP = 0x8000;

inline constexpr UINT SIZE_RESTORED = 0;

// ---- styles

inline constexpr DWORD WS_OVERLAPPED = 0x00000000;
inline constexpr DWORD WS_CHILD = 0x40000000;
inline constexpr DWORD WS_VISIBLE = 0x10000000;
inline constexpr DWORD WS_DISABLED = 0x08000000;
inline constexpr DWORD WS_CLIPCHILDREN = 0x02000000;
inline constexpr DWORD WS_BORDER = 0x00800000;
inline constexpr DWORD WS_VSCROLL = 0x00200000;
inline constexpr DWORD WS_HSCROLL = 0x00100000;
inline constexpr DWORD WS_TABSTOP = 0x00010000;
inline constexpr DWORD WS_OVERLAPPEDWINDOW = 0x00CF0000;
inline constexpr DWORD WS_EX_CLIENTEDGE = 0x00000200;

inline constexpr DWORD WS_GROUP = 0x00020000;
inline constexpr DWORD BS_PUSHBUTTON = 0x0000;
inline constexpr DWORD BS_DEFPUSHBUTTON = 0x0001;
inline constexpr DWORD BS_CHECKBOX = 0x0002;
inline constexpr DWORD BS_AUTOCHECKBOX = 0x0003;
inline constexpr DWORD BS_RADIOBUTTON = 0x0004;
inline constexpr DWORD BS_3STATE = 0x0005;
inline constexpr DWORD BS_AUTO3STATE = 0x0006;
inline constexpr DWORD BS_GROUPBOX = 0x0007;
inline constexpr DWORD BS_AUTORADIOBUTTON = 0x0009;
inline constexpr int BST_UNCHECKED = 0;
inline constexpr int BST_CHECKED = 1;
inline constexpr int BST_INDETERMINATE = 2;
inline constexpr DWORD SS_LEFT = 0x0000;
inline constexpr DWORD SS_CENTER = 0x0001;
inline constexpr DWORD SS_RIGHT = 0x0002;
inline constexpr DWORD ES_LEFT = 0x0000;
inline constexpr DWORD ES_PASSWORD = 0x0020;
inline constexpr DWORD ES_AUTOHSCROLL = 0x0080;
inline constexpr DWORD ES_READONLY = 0x0800;
inline constexpr DWORD CBS_DROPDOWN = 0x0002;
inline constexpr DWORD CBS_DROPDOWNLIST = 0x0003;
inline constexpr DWORD CBS_OWNERDRAWFIXED = 0x0010;
inline constexpr DWORD CBS_AUTOHSCROLL = 0x0040;
inline constexpr DWORD CBS_SORT = 0x0100;
inline constexpr DWORD CBS_HASSTRINGS = 0x0200;
inline constexpr DWORD LBS_NOTIFY = 0x0001;
inline constexpr DWORD LBS_SORT = 0x0002;
inline constexpr DWORD LBS_MULTIPLESEL = 0x0008;
inline constexpr DWORD LBS_EXTENDEDSEL = 0x0800;
inline constexpr DWORD LBS_STANDARD = 0x00A00003;
inline constexpr DWORD LBS_OWNERDRAWFIXED = 0x0010;
inline constexpr DWORD LBS_NOINTEGRALHEIGHT = 0x0100;

inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr int SW_SHOW = 5;

/// Returns the object that a message's parameter points to.
template <typename Object>
Object* objectOf(LPARAM parameter) {
    return reinterpret_cast<Object*>(parameter); // NOLINT(performance-no-int-to-ptr): the interface's way.
}

// ---- notifications

inline constexpr UINT BN_CLICKED = 0;
inline constexpr UINT EN_SETFOCUS = 0x0100;
inline constexpr UINT EN_KILLFOCUS = 0x0200;
inline constexpr UINT EN_CHANGE = 0x0300;
inline constexpr UINT LBN_SELCHANGE = 1;
inline constexpr UINT LBN_DBLCLK = 2;
inline constexpr UINT CBN_SELCHANGE = 1;
inline constexpr UINT CBN_KILLFOCUS = 4;
inline constexpr UINT CBN_EDITCHANGE = 5;
inline constexpr UINT CBN_DROPDOWN = 7;
inline constexpr UINT CBN_CLOSEUP = 8;
inline constexpr UINT CBN_SELENDOK = 9;

/// Called for a timer instead of sending WM_TIMER.
using TIMERPROC = void (*)(HWND window, UINT message, UINT_PTR id, DWORD tickCount);

inline constexpr int CB_ERR = -1;
inline constexpr int LB_ERR = -1;

/// The header of every notification that a control sends to its parent with WM_NOTIFY.
struct NMHDR {
    HWND hwndFrom = nullptr;
    std::uintptr_t idFrom = 0;
    UINT code = 0;
};

// ---- keys

inline constexpr UINT VK_BACK = 0x08;
inline constexpr UINT VK_TAB = 0x09;
inline constexpr UINT VK_RETURN = 0x0D;
inline constexpr UINT VK_SHIFT = 0x10;
inline constexpr UINT VK_CONTROL = 0x11;
inline constexpr UINT VK_MENU = 0x12;
inline constexpr UINT VK_ESCAPE = 0x1B;
inline constexpr UINT VK_SPACE = 0x20;
inline constexpr UINT VK_PRIOR = 0x21;
inline constexpr UINT VK_NEXT = 0x22;
inline constexpr UINT VK_END = 0x23;
inline constexpr UINT VK_HOME = 0x24;
inline constexpr UINT VK_LEFT = 0x25;
inline constexpr UINT VK_UP = 0x26;
inline constexpr UINT VK_RIGHT = 0x27;
inline constexpr UINT VK_DOWN = 0x28;
inline constexpr UINT VK_DELETE = 0x2E;
inline constexpr UINT VK_ADD = 0x6B;
inline constexpr UINT VK_SUBTRACT = 0x6D;
inline constexpr UINT VK_F1 = 0x70;
inline constexpr UINT VK_F2 = 0x71;
inline constexpr UINT VK_F4 = 0x73;

/// Returns a negative value if the key was held down at the last mouse or key event. Only VK_SHIFT,
/// VK_CONTROL and VK_MENU are tracked; other keys give 0.
ZUHOST_API std::int16_t GetKeyState(int key);

// ---- structures that messages carry

struct MSG {
    HWND hwnd = nullptr;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

struct CREATESTRUCTW {
    void* lpCreateParams = nullptr; ///< The CCreateContext; may be null.
    HWND hwndParent = nullptr;
    LONG cy = 0;
    LONG cx = 0;
    LONG y = 0;
    LONG x = 0;
    DWORD style = 0;
    const wchar_t* lpszName = nullptr;
};
using CREATESTRUCT = CREATESTRUCTW;
using LPCREATESTRUCT = CREATESTRUCTW*;

struct HDC__;
using HDC = HDC__*;

inline constexpr UINT ODS_SELECTED = 0x0001;
inline constexpr UINT ODS_DISABLED = 0x0004;
inline constexpr UINT ODS_FOCUS = 0x0010;

/// The row that an owner-drawn control has to draw.
struct DRAWITEMSTRUCT {
    UINT CtlID = 0;
    UINT itemID = 0;
    UINT itemState = 0;
    HWND hwndItem = nullptr;
    HDC hDC = nullptr;
    RECT rcItem;
    std::uintptr_t itemData = 0;
};
using LPDRAWITEMSTRUCT = DRAWITEMSTRUCT*;

struct MEASUREITEMSTRUCT {
    UINT CtlID = 0;
    UINT itemID = 0;
    UINT itemHeight = 0;
};
using LPMEASUREITEMSTRUCT = MEASUREITEMSTRUCT*;

/// A part of a window with a tool tip; see CWnd::OnToolHitTest.
struct TOOLINFOW {
    HWND hwnd = nullptr;
    RECT rect;
    wchar_t* lpszText = nullptr; ///< From malloc; the host frees it.
};
using TOOLINFO = TOOLINFOW;

// ---- colours and cursors

inline constexpr COLORREF RGB(BYTE red, BYTE green, BYTE blue) {
    return red | static_cast<COLORREF>(green) << 8 | static_cast<COLORREF>(blue) << 16;
}

inline constexpr int COLOR_WINDOW = 5;
inline constexpr int COLOR_WINDOWTEXT = 8;
inline constexpr int COLOR_HIGHLIGHT = 13;
inline constexpr int COLOR_HIGHLIGHTTEXT = 14;
inline constexpr int COLOR_BTNFACE = 15;
inline constexpr int COLOR_BTNSHADOW = 16;
inline constexpr int COLOR_GRAYTEXT = 17;
inline constexpr int COLOR_BTNTEXT = 18;
/// Returns a colour of the desktop's current palette, light or dark.
ZUHOST_API COLORREF GetSysColor(int index);

struct HICON__;
using HCURSOR = HICON__*;
inline const wchar_t* const IDC_ARROW = L"#32512";
inline const wchar_t* const IDC_SIZEWE = L"#32644";
/// Returns a cursor of the desktop; null for names other than the above. The instance is ignored.
ZUHOST_API HCURSOR LoadCursorW(HINSTANCE instance, const wchar_t* name);
/// Sets the cursor over the window that is handling a message, until the next call. Returns the cursor; null
/// when it is null or no window is handling a message.
ZUHOST_API HCURSOR SetCursor(HCURSOR cursor);

inline constexpr int DEFAULT_GUI_FONT = 17;
/// Returns the desktop's font for controls as a CFont; null for other objects.
ZUHOST_API void* GetStockObject(int index);

inline constexpr WPARAM MAKEWPARAM(UINT low, UINT high) {
    return (low & 0xFFFFU) | static_cast<WPARAM>(high & 0xFFFFU) << 16;
}
inline constexpr LPARAM MAKELPARAM(int low, int high) {
    return static_cast<LPARAM>((static_cast<std::uint32_t>(low) & 0xFFFFU) |
                               (static_cast<std::uint32_t>(high) & 0xFFFFU) << 16);
}
