#pragma once

#include <zuhost/platform/export.h>

#include <functional>
#include <string>
#include <string_view>

namespace zuhost {

/// Receives the text printed on the command line.
using CommandLineSink = std::function<void(std::wstring_view)>;

/// Sets the receiver of command-line output and returns the previous one. An empty one, as at the start,
/// writes to standard error: standard output is reserved for the results of headless programs.
ZUHOST_API CommandLineSink setCommandLineSink(CommandLineSink sink);

ZUHOST_API void printToCommandLine(std::wstring_view text);

/// Captures the command-line output during its lifetime instead of showing it.
class ZUHOST_API CommandLineObserver {
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
