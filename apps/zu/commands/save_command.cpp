#include "batch/batch.h"
#include "command_line.h"
#include "commands/commands.h"
#include "model/drawing_file.h"
#include <zuhost/drawing_files.h>

#include <memory>

namespace zu::app {

namespace {

struct Options {
    DrawingSource drawing;
    SaveOptions saving;
    bool binary = false;
    bool ascii = false;
};

void run(const Options& options) {
    DrawingFile drawing(options.drawing);
    const bool binary = options.binary || (zuhost::isBinary(drawing.database()) && !options.ascii);
    drawing.save(options.saving, binary);
}

} // namespace

void addSaveCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command =
        program.add_subcommand("save", "Open a drawing and save it unedited: a loss-free copy");
    addSaveOptions(*command, options->saving, kWhereToSave)->required();
    CommandOption* binary = command->add_flag("--binary", options->binary, "As binary drawing");
    command->add_flag("--ascii", options->ascii, "As ASCII drawing")->excludes(binary);
    runForEachDrawing(*command, options->drawing, [options] { run(*options); });
}

} // namespace zu::app
