#pragma once

#include <functional>
#include <optional>
#include <string>

namespace zuhost {

/// Returns the next line of the user's input, without its end; nullopt when the input ends.
using InputSource = std::function<std::optional<std::wstring>()>;

/// Sets where prompts are answered once the text that was sent is used up, and returns the previous source.
/// Empty, as at the start: nowhere, and prompts are cancelled.
InputSource setInputSource(InputSource source);

enum class CommandEnd {
    ended,
    failed, ///< The command threw an exception, which was reported on the command line.
    unknown ///< There is no such command.
};

/// Runs the command with the name that the user would type. Its changes of the current document's drawing are
/// one undo step.
CommandEnd runCommand(const std::wstring& name);

} // namespace zuhost
