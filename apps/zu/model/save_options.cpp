#include "model/save_options.h"

#include "command_line.h"

#include <zuhost/platform/paths.h>

#include <filesystem>

namespace zu::app {

bool namesFolder(const std::string& output) {
    std::error_code unknown;
    return output.ends_with('/') || std::filesystem::is_directory(zuhost::platform::pathOf(output), unknown);
}

CommandOption* addSaveOptions(Command& command, SaveOptions& options, const std::string& where) {
    command.add_flag("--force", options.force,
                     "Save even if another program has changed the drawing's file since it was opened");
    return command.add_option("-o,--output", options.output, where)->file_or_folder();
}

} // namespace zu::app
