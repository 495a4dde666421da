#pragma once

#include <accmd.h>

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

/// Returns the function of the command that the user typed: its local name, or "_" and its global name; null
/// when there is none. Of equal names in several groups the one registered last is found.
[[nodiscard]] AcRxFunctionPtr findCommand(const ACHAR* name);

/// Runs the command with the name that the user would type. Its changes of the current document's drawing are
/// one undo step.
CommandEnd runCommand(const std::wstring& name);

/// Returns the text that was sent and has not run yet.
const std::wstring& pendingInput();
void clearPendingInput();

/// Runs the commands that were sent, and those that they send themselves, in order; returns their number. The
/// changes of a command are one undo step. Unknown names and commands left by an exception are printed on the
/// command line and reported to the editor reactors; the commands after them still run.
int runPendingCommands();

/// Returns the next word that was sent, in upper case and without the prefixes "'", "_" and "."; empty when
/// there is none. A running command that uses it as its input removes it with takePendingWord; otherwise it
/// is the next command.
std::wstring pendingWord();
void takePendingWord();

} // namespace zuhost
