#include "terminal.h"

#include <unistd.h>

#include <iostream>

namespace zu::app {

namespace {

constexpr const char* kEraseLine = "\r\x1b[K";

} // namespace

bool isTerminal(Stream stream) {
    return isatty(stream == Stream::output ? STDOUT_FILENO : STDERR_FILENO) != 0;
}

void ProgressLine::show(std::size_t done, std::size_t all) {
    constexpr std::size_t kWidth = 40;
    if (!isTerminal(Stream::error))
        return;
    const std::size_t filled = all == 0 ? kWidth : done * kWidth / all;
    std::cerr << '\r' << '[' << std::string(filled, '#') << std::string(kWidth - filled, '.') << "] " << done
              << '/' << all << std::flush;
    isShown_ = true;
}

void ProgressLine::clear() {
    if (isShown_)
        std::cerr << kEraseLine << std::flush;
    isShown_ = false;
}

} // namespace zu::app
