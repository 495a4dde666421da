#pragma once

#include <cstddef>
#include <string>

namespace zu::app {

enum class Stream { output, error };

/// Whether a standard stream is shown on a terminal.
[[nodiscard]] bool isTerminal(Stream stream);

enum class Colour { red, yellow };

/// The text in a colour for the standard error, as it is when that is no terminal or NO_COLOR is set.
[[nodiscard]] std::string paint(const std::string& text, Colour colour);

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
