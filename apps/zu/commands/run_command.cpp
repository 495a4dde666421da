#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "model/drawing_file.h"
#include "model/script.h"
#include "model/standard_streams.h"
#include "text.h"

#include <acdocman.h>
#include <rxdlinkr.h>
#include <zuhost/command_line.h>
#include <zuhost/input.h>

#include <iostream>
#include <memory>

namespace zu::app {

namespace {

struct Options {
    std::string module;
    std::string command;
    DrawingSource drawing;
    std::string script = kStandardStream;
    SaveOptions saving;
};

/// Answers prompts with the lines of a script during its lifetime.
class ScriptedInput {
public:
    explicit ScriptedInput(const std::string& file)
        : script_(file), previous_(zuhost::setInputSource([this] { return script_.nextLine(); })) {}
    ~ScriptedInput() { zuhost::setInputSource(previous_); }
    ScriptedInput(const ScriptedInput&) = delete;
    ScriptedInput& operator=(const ScriptedInput&) = delete;

    [[nodiscard]] bool hasMore() { return script_.nextLine().has_value(); }

private:
    Script script_;
    zuhost::InputSource previous_;
};

/// A module loaded for the run of the command.
class LoadedModule {
public:
    explicit LoadedModule(const std::string& file) : path_(filePath(file)), wasLoaded_(isLoaded()) {
        const zuhost::CommandLineObserver reason;
        if (!acrxDynamicLinker->loadModule(path_, true))
            throw Failure(withoutLineEnd(narrow(reason.text())));
    }
    ~LoadedModule() {
        if (!wasLoaded_)
            acrxDynamicLinker->unloadModule(path_); // a locked one stays
    }
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

private:
    [[nodiscard]] bool isLoaded() const { return acrxAppIsLoaded(path_); }
    static std::string withoutLineEnd(std::string text) {
        if (text.ends_with('\n'))
            text.pop_back();
        return text;
    }

    CString path_;
    bool wasLoaded_;
};

void runCommand(const std::string& name) {
    switch (zuhost::runCommand(wide(name).GetString())) {
    case zuhost::CommandEnd::ended:
        zuhost::runPendingCommands();
        return;
    case zuhost::CommandEnd::failed:
        throw Failure("the command " + name + " failed; nothing is saved");
    case zuhost::CommandEnd::unknown:
        throw Failure("there is no command " + name + " after loading the module");
    }
}

void run(const Options& options) {
    if (options.script == kStandardStream && options.drawing.path == kStandardStream)
        throw WrongUsage("the drawing and the answers can't both come from the standard input; use --script");
    DrawingFile drawing(options.drawing);
    const LoadedModule module(options.module);
    ScriptedInput input(options.script);
    runCommand(options.command);
    if (options.script != kStandardStream && input.hasMore())
        std::cerr << options.script << ": warning: the command ended before the script\n";
    if (!options.saving.output.empty())
        drawing.save(options.saving);
}

} // namespace

void addRunCommandCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand(
        "run-command", "Load a module, run one of its commands on a drawing and save the drawing");
    command->add_option("MODULE", options->module, "The module's file")->required();
    command->add_option("COMMAND", options->command, "The command's name")->required();
    addDrawing(*command, options->drawing);
    command->add_option("--script", options->script,
                        "Answers to the command's prompts, one a line or separated by blanks; standard input "
                        "without this option");
    addSaveOptions(*command, options->saving, "Where to save; without this option nothing is saved");
    command->callback([options] { run(*options); });
}

} // namespace zu::app
