#pragma once

#include <rxdlinkr.h>
#include <zucomn/frame.h>
#include <zuhost/desktop.h>
#include <zuhost/message_box.h>

#include <cstdlib>
#include <iostream>

namespace zu::fuzz {

/// Starts the library and the windows as the program does, without a screen or output. Called once.
inline void startProgram() {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    std::cerr.setstate(std::ios::badbit);
    std::cout.setstate(std::ios::badbit);
    zuhost::setMessageBoxPresenter([](const zuhost::MessageBoxRequest&) { return IDOK; });
    zuhost::ensureDesktop();
    acrxDynamicLinker->loadModule(L"ZuComn.arx", false);
    ZuComn_SetResource();
}

} // namespace zu::fuzz
