#include "terminal.h"

#include <zuhost/platform/environment.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace zu::app {

namespace {

constexpr const char* kEraseLine = "\r\x1b[K";

} // namespace

bool isTerminal(Stream stream) {
    return zuhost::platform::isTerminal(stream == Stream::output ? stdout : stderr);
}

std::string paint(const std::string& text, Colour colour) {
    const char* const wish = std::getenv("NO_COLOR");
    if (!isTerminal(Stream::error) || (wish != nullptr && *wish != '\0'))
        return text;
    return (colour == Colour::red ? "\x1b[31m" : "\x1b[33m") + text + "\x1b[0m";
}

/// On a stream of its own, since messages wait for the end of their line.
void ProgressLine::show(std::size_t done, std::size_t all) {
    constexpr std::size_t kWidth = 40;
    if (!isTerminal(Stream::error))
        return;
    const std::size_t filled = all == 0 ? kWidth : done * kWidth / all;
    std::clog << '\r' << '[' << std::string(filled, '#') << std::string(kWidth - filled, '.') << "] " << done
              << '/' << all << std::flush;
    isShown_ = true;
}

void ProgressLine::clear() {
    if (isShown_)
        std::clog << kEraseLine << std::flush;
    isShown_ = false;
}

} // namespace zu::app
