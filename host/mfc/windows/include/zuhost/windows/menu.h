#pragma once

#include "../../atltypes.h"
#include "../../winuser.h"

#include <afxstr.h>
#include <zuhost/platform/export.h>

#include <memory>
#include <vector>

class CWnd;

struct HMENU__;
using HMENU = HMENU__*;

inline constexpr UINT MF_STRING = 0x0000;
inline constexpr UINT MF_ENABLED = 0x0000;
inline constexpr UINT MF_UNCHECKED = 0x0000;
inline constexpr UINT MF_BYCOMMAND = 0x0000;
inline constexpr UINT MF_GRAYED = 0x0001;
inline constexpr UINT MF_DISABLED = 0x0002;
inline constexpr UINT MF_CHECKED = 0x0008;
inline constexpr UINT MF_POPUP = 0x0010;
inline constexpr UINT MF_BYPOSITION = 0x0400;
inline constexpr UINT MF_SEPARATOR = 0x0800;

inline constexpr UINT TPM_LEFTBUTTON = 0x0000;
inline constexpr UINT TPM_LEFTALIGN = 0x0000;
inline constexpr UINT TPM_TOPALIGN = 0x0000;
inline constexpr UINT TPM_RIGHTBUTTON = 0x0002;
inline constexpr UINT TPM_CENTERALIGN = 0x0004;
inline constexpr UINT TPM_RIGHTALIGN = 0x0008;
inline constexpr UINT TPM_NONOTIFY = 0x0080;
inline constexpr UINT TPM_RETURNCMD = 0x0100;

/// A menu, owned by the object unless it is a submenu of another: Detach leaves it to that one. Items are
/// found by their identifier, in submenus too, or with MF_BYPOSITION by their index. Functions for an item
/// that does not exist return FALSE or -1.
class ZUHOST_API CMenu {
public:
    CMenu() = default;
    ~CMenu();
    CMenu(const CMenu&) = delete;
    CMenu& operator=(const CMenu&) = delete;

    /// FALSE when there is a menu already. The two kinds are the same here.
    BOOL CreateMenu();
    BOOL CreatePopupMenu();
    BOOL DestroyMenu();
    /// There are no menu resources: returns FALSE.
    BOOL LoadMenu(UINT id);
    BOOL Attach(HMENU menu);
    HMENU Detach();
    [[nodiscard]] HMENU GetSafeHmenu() const { return m_hMenu; }

    /// With MF_POPUP, `id` is the handle of the submenu, which then belongs to this menu. A text may have a
    /// mnemonic ("&Delete") and a key after a tab.
    BOOL AppendMenu(UINT flags, UINT_PTR id = 0, const wchar_t* text = nullptr);
    /// Inserts before the item; at the end when the position is -1 or past it.
    BOOL InsertMenu(UINT place, UINT flags, UINT_PTR id = 0, const wchar_t* text = nullptr);
    BOOL ModifyMenu(UINT place, UINT flags, UINT_PTR id = 0, const wchar_t* text = nullptr);
    BOOL DeleteMenu(UINT place, UINT flags);
    BOOL RemoveMenu(UINT place, UINT flags);

    /// Each returns the previous state; -1 as UINT when there is no such item.
    UINT EnableMenuItem(UINT place, UINT flags);
    UINT CheckMenuItem(UINT place, UINT flags);

    [[nodiscard]] UINT GetMenuItemCount() const;
    /// Returns -1 as UINT for a submenu.
    [[nodiscard]] UINT GetMenuItemID(int index) const;
    [[nodiscard]] UINT GetMenuState(UINT place, UINT flags) const;
    int GetMenuString(UINT place, CString& text, UINT flags) const;
    /// Returns the submenu, valid as long as this object; null for other items.
    [[nodiscard]] CMenu* GetSubMenu(int index) const;

    /// Shows the menu at a point of the screen until the user chooses. Sends the window WM_COMMAND with the
    /// item's identifier, or with TPM_RETURNCMD returns it. 0 when nothing was chosen or there is no window.
    BOOL TrackPopupMenu(UINT flags, int x, int y, CWnd* window, const RECT* excluded = nullptr);

    HMENU m_hMenu = nullptr;

private:
    bool isSubmenu_ = false; ///< Its menu belongs to another.
    mutable std::vector<std::unique_ptr<CMenu>> submenus_;
};
