#pragma once

#include <cstddef>
#include <string>

namespace zu::app {

enum class Stream { output, error };

/// Whether a standard stream is shown on a terminal.
[[nodiscard]] bool isTerminal(Stream stream);

/// A line of progress on the standard error, which is rewritten in place; nothing unless that is a terminal.
class ProgressLine {
public:
    ~ProgressLine() { clear(); }

    void show(std::size_t done, std::size_t all);
    /// Before anything else is printed.
    void clear();

private:
    bool isShown_ = false;
};

} // namespace zu::app
