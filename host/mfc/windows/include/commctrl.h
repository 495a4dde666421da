#pragma once

#include "winuser.h"

// The list control, under the platform's own names.

inline constexpr DWORD LVS_REPORT = 0x0001;
inline constexpr DWORD LVS_SINGLESEL = 0x0004;
inline constexpr DWORD LVS_SHOWSELALWAYS = 0x0008;
inline constexpr DWORD LVS_OWNERDRAWFIXED = 0x0400;
inline constexpr DWORD LVS_NOSORTHEADER = 0x8000;

inline constexpr int LVSCW_AUTOSIZE_USEHEADER = -2;

inline constexpr int LVCFMT_LEFT = 0;
inline constexpr int LVCFMT_RIGHT = 1;

inline constexpr int LVSCW_AUTOSIZE = -1;
inline constexpr DWORD LVS_EX_GRIDLINES = 0x0001;
inline constexpr DWORD LVS_EX_CHECKBOXES = 0x0004;
inline constexpr DWORD LVS_EX_FULLROWSELECT = 0x0020;
inline constexpr int LVCFMT_CENTER = 2;
inline constexpr UINT LVCF_FMT = 0x0001;
inline constexpr UINT LVCF_WIDTH = 0x0002;
inline constexpr UINT LVCF_TEXT = 0x0004;
inline constexpr UINT LVCF_SUBITEM = 0x0008;
inline constexpr UINT LVFI_PARAM = 0x0001;
inline constexpr UINT LVFI_STRING = 0x0002;
inline constexpr UINT LVFI_PARTIAL = 0x0008;
inline constexpr UINT LVFI_WRAP = 0x0020;

struct LVCOLUMNW {
    UINT mask = 0;
    int fmt = LVCFMT_LEFT;
    int cx = 0;
    wchar_t* pszText = nullptr;
    int cchTextMax = 0;
    int iSubItem = 0;
};
using LVCOLUMN = LVCOLUMNW;

struct LVFINDINFOW {
    UINT flags = 0;
    const wchar_t* psz = nullptr;
    LPARAM lParam = 0;
};
using LVFINDINFO = LVFINDINFOW;

/// Compares two lines by their data: less than, equal to or greater than 0.
using PFNLVCOMPARE = int (*)(LPARAM first, LPARAM second, LPARAM parameter);

inline constexpr UINT LVIF_TEXT = 0x0001;
inline constexpr UINT LVIF_PARAM = 0x0004;
inline constexpr UINT LVIF_STATE = 0x0008;
inline constexpr UINT LVIF_INDENT = 0x0010;

inline constexpr UINT LVIS_FOCUSED = 0x0001;
inline constexpr UINT LVIS_SELECTED = 0x0002;

inline constexpr int LVNI_ALL = 0x0000;
inline constexpr int LVNI_FOCUSED = 0x0001;
inline constexpr int LVNI_SELECTED = 0x0002;

struct LVITEMW {
    UINT mask = 0;
    int iItem = 0;
    int iSubItem = 0;
    UINT state = 0;
    UINT stateMask = 0;
    const wchar_t* pszText = nullptr;
    LPARAM lParam = 0;
    int iIndent = 0;
};
using LVITEM = LVITEMW;

inline constexpr UINT NM_CLICK = 0U - 2U;
inline constexpr UINT NM_DBLCLK = 0U - 3U;
inline constexpr UINT NM_RETURN = 0U - 4U;
inline constexpr UINT LVN_ITEMCHANGED = 0U - 101U;
inline constexpr UINT LVN_KEYDOWN = 0U - 155U;

/// Carried by LVN_ITEMCHANGED, NM_CLICK and NM_DBLCLK; the latter two set `iItem` only.
struct NMLISTVIEW {
    NMHDR hdr;
    int iItem = -1;
    int iSubItem = 0;
    UINT uNewState = 0;
    UINT uOldState = 0;
    UINT uChanged = 0;
    POINT ptAction;
    LPARAM lParam = 0;
};
using LPNMLISTVIEW = NMLISTVIEW*;
