#include "window_link.h"

#include <algorithm>
#include <array>

namespace zuhost {

namespace {

struct Key {
    int qt;
    UINT platform;
};

constexpr std::array kKeys{
    Key{Qt::Key_Backspace, VK_BACK}, Key{Qt::Key_Tab, VK_TAB},         Key{Qt::Key_Backtab, VK_TAB},
    Key{Qt::Key_Return, VK_RETURN},  Key{Qt::Key_Enter, VK_RETURN},    Key{Qt::Key_Escape, VK_ESCAPE},
    Key{Qt::Key_Space, VK_SPACE},    Key{Qt::Key_PageUp, VK_PRIOR},    Key{Qt::Key_PageDown, VK_NEXT},
    Key{Qt::Key_End, VK_END},        Key{Qt::Key_Home, VK_HOME},       Key{Qt::Key_Left, VK_LEFT},
    Key{Qt::Key_Up, VK_UP},          Key{Qt::Key_Right, VK_RIGHT},     Key{Qt::Key_Down, VK_DOWN},
    Key{Qt::Key_Delete, VK_DELETE},  Key{Qt::Key_Plus, VK_ADD},        Key{Qt::Key_Minus, VK_SUBTRACT},
    Key{Qt::Key_Shift, VK_SHIFT},    Key{Qt::Key_Control, VK_CONTROL}, Key{Qt::Key_Alt, VK_MENU},
};

Qt::KeyboardModifiers lastModifiers;

Qt::KeyboardModifier modifierOf(int key) {
    switch (static_cast<UINT>(key)) {
    case VK_SHIFT:
        return Qt::ShiftModifier;
    case VK_CONTROL:
        return Qt::ControlModifier;
    case VK_MENU:
        return Qt::AltModifier;
    default:
        return Qt::NoModifier;
    }
}

} // namespace

UINT virtualKey(int qtKey) {
    const bool isLetterOrDigit =
        (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) || (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9);
    if (isLetterOrDigit)
        return static_cast<UINT>(qtKey);
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F12)
        return VK_F1 + static_cast<UINT>(qtKey - Qt::Key_F1);
    const auto* const found =
        std::find_if(kKeys.begin(), kKeys.end(), [qtKey](const Key& key) { return key.qt == qtKey; });
    return found != kKeys.end() ? found->platform : 0;
}

void rememberModifiers(Qt::KeyboardModifiers modifiers) {
    lastModifiers = modifiers;
}

} // namespace zuhost

std::int16_t GetKeyState(int key) {
    const Qt::KeyboardModifier modifier = zuhost::modifierOf(key);
    return modifier != Qt::NoModifier && (zuhost::lastModifiers & modifier) != 0 ? std::int16_t{-1}
                                                                                 : std::int16_t{0};
}
