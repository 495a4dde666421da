#include "model/save_options.h"

#include "command_line.h"

namespace zu::app {

CommandOption* addSaveOptions(Command& command, SaveOptions& options, const std::string& where) {
    command.add_flag("--force", options.force,
                     "Save even if another program has changed the drawing's file since it was opened");
    return command.add_option("-o,--output", options.output, where);
}

} // namespace zu::app
