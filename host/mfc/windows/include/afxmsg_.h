#pragma once

#include "atltypes.h"
#include "winuser.h"

#include <type_traits>

class CWnd;

// Message maps list the member functions of a window class that handle messages. A class declares its map
// with DECLARE_MESSAGE_MAP and defines it between BEGIN_MESSAGE_MAP and END_MESSAGE_MAP; messages without an
// entry go to the base class.

struct AFX_MSGMAP_ENTRY {
    UINT message;
    UINT code; ///< The notification code of a WM_COMMAND or WM_NOTIFY, else 0.
    UINT id;   ///< The control's identifier with such a code, else 0.
    LRESULT (*handler)(CWnd& window, WPARAM wParam, LPARAM lParam);
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*base)();
    const AFX_MSGMAP_ENTRY* entries; ///< An entry without a handler ends them.
};

namespace zuhost::handler {

template <typename Method>
struct ClassOf;
template <typename Class, typename Result, typename... Arguments>
struct ClassOf<Result (Class::*)(Arguments...)> {
    using type = Class;
};

template <auto Method, typename... Arguments>
auto call(CWnd& window, Arguments... arguments) {
    using Class = typename ClassOf<decltype(Method)>::type;
    return (static_cast<Class&>(window).*Method)(arguments...);
}

template <auto Method>
LRESULT plain(CWnd& window, WPARAM, LPARAM) {
    call<Method>(window);
    return 0;
}

template <auto Method>
LRESULT create(CWnd& window, WPARAM, LPARAM lParam) {
    return call<Method>(window, objectOf<CREATESTRUCT>(lParam));
}

template <auto Method>
LRESULT size(CWnd& window, WPARAM wParam, LPARAM lParam) {
    const auto packed = static_cast<std::uintptr_t>(lParam);
    call<Method>(window, static_cast<UINT>(wParam), static_cast<int>(LOWORD(packed)),
                 static_cast<int>(HIWORD(packed)));
    return 0;
}

template <auto Method>
LRESULT key(CWnd& window, WPARAM wParam, LPARAM) {
    call<Method>(window, static_cast<UINT>(wParam), 1U, 0U);
    return 0;
}

template <auto Method>
LRESULT timer(CWnd& window, WPARAM wParam, LPARAM) {
    call<Method>(window, static_cast<UINT_PTR>(wParam));
    return 0;
}

inline CPoint pointOf(LPARAM lParam) {
    const auto packed = static_cast<std::uintptr_t>(lParam);
    return {static_cast<std::int16_t>(LOWORD(packed)), static_cast<std::int16_t>(HIWORD(packed))};
}

template <auto Method>
LRESULT mouse(CWnd& window, WPARAM wParam, LPARAM lParam) {
    call<Method>(window, static_cast<UINT>(wParam), pointOf(lParam));
    return 0;
}

template <auto Method>
LRESULT windowAndPoint(CWnd& window, WPARAM, LPARAM lParam) {
    call<Method>(window, &window, pointOf(lParam));
    return 0;
}

/// Passes null for the other window: the host doesn't know which one loses or receives the focus.
template <auto Method>
LRESULT focus(CWnd& window, WPARAM, LPARAM) {
    call<Method>(window, static_cast<CWnd*>(nullptr));
    return 0;
}

template <auto Method>
LRESULT notify(CWnd& window, WPARAM, LPARAM lParam) {
    LRESULT result = 0;
    call<Method>(window, objectOf<NMHDR>(lParam), &result);
    return result;
}

template <auto Method>
LRESULT message(CWnd& window, WPARAM wParam, LPARAM lParam) {
    return call<Method>(window, wParam, lParam);
}

} // namespace zuhost::handler

#define DECLARE_MESSAGE_MAP()                                                                                \
protected:                                                                                                   \
    static const AFX_MSGMAP* GetThisMessageMap();                                                            \
    [[nodiscard]] const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(class_name, base_class_name)                                                       \
    const AFX_MSGMAP* class_name::GetMessageMap() const {                                                    \
        return GetThisMessageMap();                                                                          \
    }                                                                                                        \
    const AFX_MSGMAP* class_name::GetThisMessageMap() {                                                      \
        using ThisClass = class_name;                                                                        \
        using TheBaseClass = base_class_name;                                                                \
        static const AFX_MSGMAP_ENTRY entries[] = {

#define END_MESSAGE_MAP()                                                                                    \
    { 0, 0, 0, nullptr }                                                                                     \
    }                                                                                                        \
    ;                                                                                                        \
    static const AFX_MSGMAP map = {&TheBaseClass::GetThisMessageMap, entries};                               \
    return &map;                                                                                             \
    }

#define ON_WM_CREATE() {WM_CREATE, 0, 0, &zuhost::handler::create<&ThisClass::OnCreate>},
#define ON_WM_DESTROY() {WM_DESTROY, 0, 0, &zuhost::handler::plain<&ThisClass::OnDestroy>},
#define ON_WM_CLOSE() {WM_CLOSE, 0, 0, &zuhost::handler::plain<&ThisClass::OnClose>},
#define ON_WM_CANCELMODE() {WM_CANCELMODE, 0, 0, &zuhost::handler::plain<&ThisClass::OnCancelMode>},
#define ON_WM_SYSCOLORCHANGE()                                                                               \
    {WM_SYSCOLORCHANGE, 0, 0, &zuhost::handler::plain<&ThisClass::OnSysColorChange>},
#define ON_WM_SIZE() {WM_SIZE, 0, 0, &zuhost::handler::size<&ThisClass::OnSize>},
#define ON_WM_SETFOCUS() {WM_SETFOCUS, 0, 0, &zuhost::handler::focus<&ThisClass::OnSetFocus>},
#define ON_WM_KILLFOCUS() {WM_KILLFOCUS, 0, 0, &zuhost::handler::focus<&ThisClass::OnKillFocus>},
#define ON_WM_KEYDOWN() {WM_KEYDOWN, 0, 0, &zuhost::handler::key<&ThisClass::OnKeyDown>},
#define ON_WM_CHAR() {WM_CHAR, 0, 0, &zuhost::handler::key<&ThisClass::OnChar>},
#define ON_WM_MOUSEMOVE() {WM_MOUSEMOVE, 0, 0, &zuhost::handler::mouse<&ThisClass::OnMouseMove>},
#define ON_WM_LBUTTONDOWN() {WM_LBUTTONDOWN, 0, 0, &zuhost::handler::mouse<&ThisClass::OnLButtonDown>},
#define ON_WM_LBUTTONUP() {WM_LBUTTONUP, 0, 0, &zuhost::handler::mouse<&ThisClass::OnLButtonUp>},
#define ON_WM_LBUTTONDBLCLK() {WM_LBUTTONDBLCLK, 0, 0, &zuhost::handler::mouse<&ThisClass::OnLButtonDblClk>},
#define ON_WM_CONTEXTMENU()                                                                                  \
    {WM_CONTEXTMENU, 0, 0, &zuhost::handler::windowAndPoint<&ThisClass::OnContextMenu>},
#define ON_WM_TIMER() {WM_TIMER, 0, 0, &zuhost::handler::timer<&ThisClass::OnTimer>},
#define ON_WM_VSCROLL() {WM_VSCROLL, 0, 0, &zuhost::handler::plain<&ThisClass::OnVScroll>},
#define ON_CONTROL(code, id, method) {WM_COMMAND, code, id, &zuhost::handler::plain<&ThisClass::method>},
/// For the items of menus; their code is 0.
#define ON_COMMAND(id, method) ON_CONTROL(0, id, method)
#define ON_BN_CLICKED(id, method) ON_CONTROL(BN_CLICKED, id, method)
#define ON_LBN_SELCHANGE(id, method) ON_CONTROL(LBN_SELCHANGE, id, method)
#define ON_LBN_DBLCLK(id, method) ON_CONTROL(LBN_DBLCLK, id, method)
#define ON_EN_CHANGE(id, method) ON_CONTROL(EN_CHANGE, id, method)
#define ON_EN_SETFOCUS(id, method) ON_CONTROL(EN_SETFOCUS, id, method)
#define ON_EN_KILLFOCUS(id, method) ON_CONTROL(EN_KILLFOCUS, id, method)
#define ON_CBN_SELCHANGE(id, method) ON_CONTROL(CBN_SELCHANGE, id, method)
#define ON_CBN_SELENDOK(id, method) ON_CONTROL(CBN_SELENDOK, id, method)
#define ON_CBN_EDITCHANGE(id, method) ON_CONTROL(CBN_EDITCHANGE, id, method)
#define ON_CBN_DROPDOWN(id, method) ON_CONTROL(CBN_DROPDOWN, id, method)
#define ON_CBN_CLOSEUP(id, method) ON_CONTROL(CBN_CLOSEUP, id, method)
#define ON_CBN_KILLFOCUS(id, method) ON_CONTROL(CBN_KILLFOCUS, id, method)
#define ON_NOTIFY(code, id, method) {WM_NOTIFY, code, id, &zuhost::handler::notify<&ThisClass::method>},
#define ON_MESSAGE(number, method) {number, 0, 0, &zuhost::handler::message<&ThisClass::method>},
