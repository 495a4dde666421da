#include "batch/batch.h"
#include "command_line.h"
#include "commands/commands.h"
#include "model/drawing_file.h"
#include "plan/scene_picture.h"

#include <memory>

namespace zu::app {

namespace {

struct Options {
    DrawingSource drawing;
    std::string output;
    int width = 1600;
};

void run(const Options& options) {
    DrawingFile drawing(options.drawing);
    drawPlan(PlanScene(drawing), options.output, options.width);
}

} // namespace

void addPlanCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand(
        "plan", "Draw the plan: routes coloured by link kind, connection points marked");
    command->add_option("-o,--output", options->output, "The picture, .png or .svg")->required();
    command->add_option("--width", options->width, "Width in pixels")
        ->capture_default_str()
        ->range(100, 20000);
    runForEachDrawing(*command, options->drawing, [options] { run(*options); });
}

} // namespace zu::app
