#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "plan/comparison_picture.h"
#include "plan/part_previews.h"

// What stands in for windows and pictures in a build without them.

namespace zu::app {

namespace {

[[noreturn]] void refuse(const std::string& wanted) {
    throw Failure(wanted + ": this zu was built without windows and pictures; use one that has them");
}

void addRefusing(Command& program, const std::string& name) {
    Command* command = program.add_subcommand(name, "Not in this build, which has no windows and pictures");
    command->takeAnything();
    command->callback([name] { refuse(name); });
}

} // namespace

void addDemoCommand(Command& program) {
    addRefusing(program, "demo");
}

void addPartsListCommand(Command& program) {
    addRefusing(program, "parts-list");
}

void addPlanCommand(Command& program) {
    addRefusing(program, "plan");
}

void addReportCommand(Command& program) {
    addRefusing(program, "report");
}

void addWindowCommand(Command& program) {
    addRefusing(program, "window");
}

void saveComparison(AcDbDatabase& /*after*/, const zucomn::DrawingDifferences& /*differences*/,
                    const std::string& file) {
    refuse(file);
}

void savePreview(const std::string& /*part*/, const std::string& file, const PreviewOptions& /*options*/) {
    refuse(file);
}

void savePreviews(const std::string& /*folder*/, const std::string& pictureFolder,
                  const PreviewOptions& /*options*/) {
    refuse(pictureFolder);
}

} // namespace zu::app
