#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace zu::app {

/// The answers to a command's prompts, line by line: those of a file, or of the standard input. Lines are
/// read when they are asked for, so that an input without an end does no harm. Lines that begin with ";" are
/// comments.
///
/// The text is UTF-8, with or without a mark; a line that is not valid UTF-8 is in code page 932.
class Script {
public:
    /// Throws Failure when the file can't be opened. "-" is the standard input.
    explicit Script(const std::string& file);
    ~Script();
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    /// Returns the next line without its end; nullopt at the end. Throws Failure when it can't be read, and
    /// for a line of more than a megabyte.
    std::optional<std::wstring> nextLine();

private:
    class Bytes;

    [[nodiscard]] std::optional<std::string> readLine();

    std::string name_;
    std::unique_ptr<Bytes> bytes_;
};

} // namespace zu::app
