#include "command_line.h"
#include "commands/attribute_window.h"
#include "commands/commands.h"
#include "failure.h"
#include "model/readable_file.h"
#include "model/settings_file.h"
#include "text.h"

#include <zucomn/parts_list_views.h>
#include <zuhost/desktop.h>

#include <filesystem>
#include <memory>

namespace zu::app {

namespace {

struct Options {
    std::string file;
    std::string settings;
    std::string screenshot;
};

CUPAttFrameWnd& openFrame(const Options& options) {
    auto* const frame = new CUPAttFrameWnd; // Deletes itself with its window.
    const std::string name = std::filesystem::path(options.file).filename().string();
    if (frame->Create(nullptr, wide(name), WS_OVERLAPPEDWINDOW, CRect(0, 0, 640, 480)) == FALSE)
        throw Failure("the parts-list window can't be made");
    if (frame->GetLeftPane()->ReadCSVFile(fullPath(options.file)) != 0) {
        frame->DestroyWindow();
        requireReadable(options.file);
        throw Failure(options.file + ": holds no attribute lines");
    }
    frame->ShowWindow(SW_SHOW);
    return *frame;
}

void run(const Options& options) {
    const SettingsFile settings(options.settings);
    preparePictures(options.screenshot);
    CUPAttFrameWnd& frame = openFrame(options);
    if (!options.screenshot.empty()) {
        closeWithPicture(frame, options.screenshot);
        return;
    }
    showToUser(frame);
    zuhost::runDesktop();
}

} // namespace

void addPartsListCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand(
        "parts-list", "Edit the attribute lines of a text file in the parts-list window");
    command->add_option("FILE", options->file, "The file")->required();
    command->add_option("--settings", options->settings, "Master settings file, for the names and choices");
    command->add_option("--screenshot", options->screenshot, "Draw the window into this PNG file instead");
    command->callback([options] { run(*options); });
}

} // namespace zu::app
