#pragma once

#include <string>

namespace zu::app {

class Command;
class CommandOption;

/// Where a command saves its drawing.
struct SaveOptions {
    std::string output; ///< A file, a folder, or "-".
    bool force = false; ///< Save even if the file has changed since the drawing was opened from it.
};

/// Whether an output is a folder: one that exists, or whose name ends with "/".
[[nodiscard]] bool namesFolder(const std::string& output);

/// The help of "-o" in most commands.
constexpr const char* kWhereToSave =
    "Where to save: a file, or a folder, in which the drawing keeps its name; several drawings need a folder "
    "or {} where the drawing's name goes";

/// Adds "-o" with the help text, and "--force"; returns the former.
CommandOption* addSaveOptions(Command& command, SaveOptions& options, const std::string& where);

} // namespace zu::app
