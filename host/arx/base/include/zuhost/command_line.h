#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace zuhost {

/// Takes what is printed on the command line.
using CommandLineSink = std::function<void(std::wstring_view)>;

/// Sets where command-line output goes, and returns where it went until now. Empty, as at the start, means
/// standard error: a headless program keeps its standard output to itself.
CommandLineSink setCommandLineSink(CommandLineSink sink);

void printToCommandLine(std::wstring_view text);

/// Collects what is printed during its life instead of showing it.
class CommandLineObserver {
public:
    CommandLineObserver();
    ~CommandLineObserver();
    CommandLineObserver(const CommandLineObserver&) = delete;
    CommandLineObserver& operator=(const CommandLineObserver&) = delete;

    [[nodiscard]] const std::wstring& text() const { return text_; }

private:
    std::wstring text_;
    CommandLineSink previous_;
};

} // namespace zuhost
