#include "zuhost/windows/menu.h"

#include "qt_text.h"
#include "zuhost/windows/widgets.h"
#include "zuhost/windows/wnd.h"

#include <QAction>
#include <QMenu>
#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <map>
#include <optional>

namespace {

constexpr UINT kNone = 0xFFFFFFFF;
constexpr UINT kStates = MF_GRAYED | MF_DISABLED;

struct Menu;

struct Item {
    UINT flags = 0;
    UINT_PTR id = 0;
    CString text;
    std::shared_ptr<Menu> submenu;
};

struct Menu {
    std::vector<Item> items;
};

/// The menus that have a handle. Submenus are held by their items too, so no handle outlives its menu.
std::map<const void*, std::shared_ptr<Menu>>& menus() {
    static std::map<const void*, std::shared_ptr<Menu>> known;
    return known;
}

HMENU handleOf(const std::shared_ptr<Menu>& menu) {
    menus()[menu.get()] = menu;
    return reinterpret_cast<HMENU>(menu.get());
}

std::shared_ptr<Menu> menuOf(const void* handle) {
    const auto found = menus().find(handle);
    return found != menus().end() ? found->second : nullptr;
}

void forget(const std::shared_ptr<Menu>& menu) {
    menus().erase(menu.get());
    for (const Item& item : menu->items)
        if (item.submenu != nullptr)
            forget(item.submenu);
}

bool contains(const Menu& menu, const Menu* wanted) {
    return &menu == wanted || std::any_of(menu.items.begin(), menu.items.end(), [wanted](const Item& item) {
        return item.submenu != nullptr && contains(*item.submenu, wanted);
    });
}

/// An item and the menu that has it.
struct Place {
    Menu* menu = nullptr;
    std::size_t index = 0;

    [[nodiscard]] Item& item() const { return menu->items[index]; }
};

std::optional<Place> findId(Menu& menu, UINT id) {
    for (std::size_t i = 0; i < menu.items.size(); ++i) {
        if (menu.items[i].submenu == nullptr && menu.items[i].id == id)
            return Place{&menu, i};
        if (menu.items[i].submenu != nullptr)
            if (const auto found = findId(*menu.items[i].submenu, id))
                return found;
    }
    return std::nullopt;
}

std::optional<Place> find(HMENU handle, UINT place, UINT flags) {
    const std::shared_ptr<Menu> menu = menuOf(handle);
    if (menu == nullptr)
        return std::nullopt;
    if ((flags & MF_BYPOSITION) == 0)
        return findId(*menu, place);
    return place < menu->items.size() ? std::optional(Place{menu.get(), place}) : std::nullopt;
}

/// Returns nullopt for a submenu that does not exist or that holds the menu itself.
std::optional<Item> itemFor(const Menu& owner, UINT flags, UINT_PTR id, const wchar_t* text) {
    Item item{flags & ~MF_BYPOSITION, id, text, nullptr};
    if ((flags & MF_POPUP) == 0)
        return item;
    item.submenu = menuOf(reinterpret_cast<const void*>(id)); // NOLINT(performance-no-int-to-ptr): a handle.
    if (item.submenu == nullptr || contains(*item.submenu, &owner))
        return std::nullopt;
    return item;
}

void fill(QMenu& shown, const Menu& menu) {
    for (const Item& item : menu.items) {
        if ((item.flags & MF_SEPARATOR) != 0) {
            shown.addSeparator();
            continue;
        }
        const QString text = zuhost::toQt(item.text.GetString());
        QAction* action = nullptr;
        if (item.submenu != nullptr) {
            QMenu* const submenu = shown.addMenu(text);
            fill(*submenu, *item.submenu);
            action = submenu->menuAction();
        } else {
            action = shown.addAction(text);
            action->setData(static_cast<qulonglong>(item.id));
            action->setCheckable((item.flags & MF_CHECKED) != 0);
            action->setChecked((item.flags & MF_CHECKED) != 0);
        }
        action->setEnabled((item.flags & kStates) == 0);
    }
}

UINT changeState(HMENU handle, UINT place, UINT flags, UINT mask) {
    const auto found = find(handle, place, flags);
    if (!found)
        return kNone;
    UINT& state = found->item().flags;
    const UINT before = state & mask;
    state = (state & ~mask) | (flags & mask);
    return before;
}

} // namespace

CMenu::~CMenu() {
    if (!isSubmenu_)
        DestroyMenu();
}

BOOL CMenu::CreateMenu() {
    if (m_hMenu != nullptr)
        return FALSE;
    m_hMenu = handleOf(std::make_shared<Menu>());
    return TRUE;
}

BOOL CMenu::CreatePopupMenu() {
    return CreateMenu();
}

BOOL CMenu::DestroyMenu() {
    submenus_.clear();
    const std::shared_ptr<Menu> menu = menuOf(Detach());
    if (menu == nullptr)
        return FALSE;
    forget(menu);
    return TRUE;
}

BOOL CMenu::LoadMenu(UINT /*id*/) {
    return FALSE;
}

BOOL CMenu::Attach(HMENU menu) {
    if (m_hMenu != nullptr || menuOf(menu) == nullptr)
        return FALSE;
    m_hMenu = menu;
    return TRUE;
}

HMENU CMenu::Detach() {
    return std::exchange(m_hMenu, nullptr);
}

BOOL CMenu::AppendMenu(UINT flags, UINT_PTR id, const wchar_t* text) {
    return InsertMenu(kNone, flags | MF_BYPOSITION, id, text);
}

BOOL CMenu::InsertMenu(UINT place, UINT flags, UINT_PTR id, const wchar_t* text) {
    const std::shared_ptr<Menu> menu = menuOf(m_hMenu);
    auto found = find(m_hMenu, place, flags);
    if (menu == nullptr || (!found && (flags & MF_BYPOSITION) == 0))
        return FALSE;
    if (!found)
        found = Place{menu.get(), menu->items.size()};
    auto item = itemFor(*found->menu, flags, id, text);
    if (!item)
        return FALSE;
    found->menu->items.insert(found->menu->items.begin() + static_cast<std::ptrdiff_t>(found->index),
                              *std::move(item));
    return TRUE;
}

BOOL CMenu::ModifyMenu(UINT place, UINT flags, UINT_PTR id, const wchar_t* text) {
    const auto found = find(m_hMenu, place, flags);
    auto item = found ? itemFor(*found->menu, flags, id, text) : std::nullopt;
    if (!item)
        return FALSE;
    found->item() = *std::move(item);
    return TRUE;
}

BOOL CMenu::DeleteMenu(UINT place, UINT flags) {
    const auto found = find(m_hMenu, place, flags);
    if (!found)
        return FALSE;
    if (found->item().submenu != nullptr)
        forget(found->item().submenu);
    found->menu->items.erase(found->menu->items.begin() + static_cast<std::ptrdiff_t>(found->index));
    return TRUE;
}

BOOL CMenu::RemoveMenu(UINT place, UINT flags) {
    const auto found = find(m_hMenu, place, flags);
    if (!found)
        return FALSE;
    found->menu->items.erase(found->menu->items.begin() + static_cast<std::ptrdiff_t>(found->index));
    return TRUE;
}

UINT CMenu::EnableMenuItem(UINT place, UINT flags) {
    return changeState(m_hMenu, place, flags, kStates);
}

UINT CMenu::CheckMenuItem(UINT place, UINT flags) {
    return changeState(m_hMenu, place, flags, MF_CHECKED);
}

UINT CMenu::GetMenuItemCount() const {
    const std::shared_ptr<Menu> menu = menuOf(m_hMenu);
    return menu != nullptr ? static_cast<UINT>(menu->items.size()) : kNone;
}

UINT CMenu::GetMenuItemID(int index) const {
    const auto found = find(m_hMenu, static_cast<UINT>(index), MF_BYPOSITION);
    return found && found->item().submenu == nullptr ? static_cast<UINT>(found->item().id) : kNone;
}

UINT CMenu::GetMenuState(UINT place, UINT flags) const {
    const auto found = find(m_hMenu, place, flags);
    return found ? found->item().flags : kNone;
}

int CMenu::GetMenuString(UINT place, CString& text, UINT flags) const {
    const auto found = find(m_hMenu, place, flags);
    text = found ? found->item().text : CString();
    return text.GetLength();
}

CMenu* CMenu::GetSubMenu(int index) const {
    const auto found = find(m_hMenu, static_cast<UINT>(index), MF_BYPOSITION);
    if (!found || found->item().submenu == nullptr)
        return nullptr;
    const HMENU handle = handleOf(found->item().submenu);
    for (const std::unique_ptr<CMenu>& known : submenus_)
        if (known->m_hMenu == handle)
            return known.get();
    submenus_.push_back(std::make_unique<CMenu>());
    submenus_.back()->m_hMenu = handle;
    submenus_.back()->isSubmenu_ = true;
    return submenus_.back().get();
}

BOOL CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd* window, const RECT* /*excluded*/) {
    const std::shared_ptr<Menu> menu = menuOf(m_hMenu);
    if (menu == nullptr || window == nullptr || zuhost::widgetOf(*window) == nullptr)
        return FALSE;
    const QPointer<QWidget> alive = zuhost::widgetOf(*window);
    QMenu shown(zuhost::widgetOf(*window));
    fill(shown, *menu);
    const QAction* const chosen = shown.exec(QPoint(x, y));
    if (chosen == nullptr)
        return FALSE;
    const auto id = static_cast<UINT>(chosen->data().toULongLong());
    if ((flags & TPM_RETURNCMD) != 0)
        return static_cast<BOOL>(id);
    if (alive != nullptr && (flags & TPM_NONOTIFY) == 0)
        window->SendMessage(WM_COMMAND, MAKEWPARAM(id, 0));
    return TRUE;
}
