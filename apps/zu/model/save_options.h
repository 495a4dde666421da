#pragma once

#include <string>

namespace zu::app {

class Command;
class CommandOption;

/// Where a command saves its drawing.
struct SaveOptions {
    std::string output;
    bool force = false; ///< Save even if the file has changed since the drawing was opened from it.
};

/// Adds "-o" with the help text, and "--force"; returns the former.
CommandOption* addSaveOptions(Command& command, SaveOptions& options, const std::string& where);

} // namespace zu::app
