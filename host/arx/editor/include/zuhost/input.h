#pragma once

#include <accmd.h>
#include <zuhost/platform/export.h>

#include <functional>
#include <optional>
#include <string>

namespace zuhost {

/// Returns the next line of the user's input, without its end; nullopt when the input ends.
using InputSource = std::function<std::optional<std::wstring>()>;

/// Sets where prompts are answered once the text that was sent is used up, and returns the previous source.
/// Empty, as at the start: nowhere, and prompts are cancelled.
ZUHOST_API InputSource setInputSource(InputSource source);

enum class CommandEnd {
    ended,
    failed, ///< The command threw an exception, which was reported on the command line.
    unknown ///< There is no such command.
};

/// Returns the function of the command that the user typed: its local name, or "_" and its global name; null
/// when there is none. Of equal names in several groups the one registered last is found.
[[nodiscard]] ZUHOST_API AcRxFunctionPtr findCommand(const ACHAR* name);

/// Runs the command with the name that the user would type. Its changes of the current document's drawing are
/// one undo step.
ZUHOST_API CommandEnd runCommand(const std::wstring& name);

/// Returns the text that was sent and has not run yet.
ZUHOST_API const std::wstring& pendingInput();
ZUHOST_API void clearPendingInput();

/// Runs the commands that were sent, and those that they send themselves, in order; returns their number. The
/// changes of a command are one undo step. Unknown names and commands left by an exception are printed on the
/// command line and reported to the editor reactors; the commands after them still run.
ZUHOST_API int runPendingCommands();

/// Returns the next word that was sent, in upper case and without the prefixes "'", "_" and "."; empty when
/// there is none. A running command that uses it as its input removes it with takePendingWord; otherwise it
/// is the next command.
ZUHOST_API std::wstring pendingWord();
ZUHOST_API void takePendingWord();

} // namespace zuhost
