#include "zuhost/command_line.h"

#include <zuhost/text_codec.h>

#include <iostream>
#include <utility>

namespace {

zuhost::CommandLineSink& currentSink() {
    static zuhost::CommandLineSink sink;
    return sink;
}

} // namespace

namespace zuhost {

CommandLineSink setCommandLineSink(CommandLineSink sink) {
    return std::exchange(currentSink(), std::move(sink));
}

void printToCommandLine(std::wstring_view text) {
    if (currentSink())
        currentSink()(text);
    else
        std::cerr << toUtf8(text);
}

CommandLineObserver::CommandLineObserver()
    : previous_(setCommandLineSink([this](std::wstring_view text) { text_ += text; })) {}

CommandLineObserver::~CommandLineObserver() {
    setCommandLineSink(std::move(previous_));
}

} // namespace zuhost
