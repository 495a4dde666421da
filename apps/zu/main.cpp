#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "manners/messages.h"
#include "manners/suggestion.h"
#include "manners/translation.h"
#include "model/language.h"
#include "shell/completion.h"
#include "shell/description.h"

#include <CLI/CLI.hpp>
#include <rxdlinkr.h>
#include <zucomn/frame.h>
#include <zuhost/application.h>
#include <zuhost/message_box.h>
#include <zuhost/platform/streams.h>

#include <algorithm>
#include <exception>
#include <iostream>
#include <new>
#include <span>
#include <string>
#include <vector>

namespace {

using zu::app::suggestion;
using zu::app::translated;

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

void addCommands(zu::app::Command& program) {
    using namespace zu::app;
    addElementsCommand(program);
    addGroupsCommand(program);
    addConnectedCommand(program);
    addAttributesCommand(program);
    addSetAttributeCommand(program);
    addCheckCommand(program);
    addQuantitiesCommand(program);
    addCompareCommand(program);
    addReportCommand(program);
    addSaveCommand(program);
    addRunCommandCommand(program);
    addPartCommand(program);
    addPartsListCommand(program);
    addPlanCommand(program);
    addLinkCommand(program);
    addTableCommand(program);
    addWindowCommand(program);
    addDemoCommand(program);
}

/// The library is started as the host starts it: through the dynamic linker. Commands never wait for a
/// message box.
void startLibrary() {
    zuhost::setApplication({"zu", L"ZuComn", "zucomn"});
    zuhost::setMessageBoxPresenter(&zuhost::printMessageBox);
    acrxDynamicLinker->loadModule(L"ZuComn.arx", false);
    zu::app::chooseLanguage();
    ZuComn_SetResource();
    zu::app::loadTranslations();
}

const CLI::App& commandOf(const CLI::App& program) {
    const CLI::App* command = &program;
    while (!command->get_subcommands().empty())
        command = command->get_subcommands().front();
    return *command;
}

/// The drawing that the command line names, followed by ": "; empty when it names none.
std::string drawingPrefix(const CLI::App& program) {
    const CLI::Option* drawing = commandOf(program).get_option_no_throw("DRAWING");
    return drawing != nullptr && drawing->count() > 0 ? drawing->as<std::string>() + ": " : "";
}

/// What the shells and the manual pages ask for.
bool answer(const CLI::App& program, std::span<const std::string> words) {
    if (words.empty() || (words.front() != "--complete" && words.front() != "--describe"))
        return false;
    if (words.front() == "--describe") {
        std::cout << zu::app::describe(program).dump() << '\n';
        return true;
    }
    print(zu::app::complete(program, words.subspan(1)));
    return true;
}

std::vector<std::string> commandNames(const CLI::App& program) {
    std::vector<std::string> names;
    for (const CLI::App* command : program.get_subcommands(nullptr))
        names.push_back(command->get_name());
    return names;
}

std::string unknownArgument(const CLI::App& program, const CLI::ExtrasError& error) {
    const CLI::App& command = commandOf(program);
    const std::vector<std::string> left = program.remaining(true);
    if (left.empty())
        return error.what();
    std::vector<std::string> names;
    if (left.front().starts_with("-"))
        for (const CLI::Option* option : command.get_options())
            if (!option->get_positional())
                names.push_back(option->get_name());
    return command.get_name() + " takes no argument " + left.front() + suggestion(left.front(), names) +
           "; --help lists them";
}

/// The parts of the help that the parser writes; what it inherits must be set before commands are added.
void translateHelp(CLI::App& program) {
    for (const char* label : {"Usage", "OPTIONS", "SUBCOMMAND", "SUBCOMMANDS", "Positionals", "REQUIRED",
                              "TEXT", "INT", "FLOAT", "Excludes"})
        program.get_formatter()->label(label, translated(label));
    program.option_defaults()->group(translated("Options"));
    program.set_help_flag("-h,--help", translated("Print this help message and exit"));
    program.get_help_ptr()->group(translated("Options"));
}

int run(std::vector<std::string> words) {
    startLibrary();
    CLI::App program(
        translated("Checks and edits drawings of building services: elements, routes, attributes."), "zu");
    translateHelp(program);
    program.allow_windows_style_options(false); // "/samples/x.dxf" is a path on every system
    program.require_subcommand(1);
    program.set_help_all_flag("--help-all", translated("Help of every command"));
    program.set_version_flag("--version", "zu " ZU_VERSION, translated("Print the version"));
    zu::app::Command commands(program);
    addCommands(commands);
    if (!words.empty())
        words.erase(words.begin());
    if (answer(program, words))
        return 0;
    try {
        std::reverse(words.begin(), words.end()); // The parser takes them from the end.
        program.parse(words);
        return 0;
    } catch (const CLI::RequiredError& error) {
        const std::vector<std::string> unknown = program.remaining();
        if (program.get_subcommands().empty() && !unknown.empty())
            throw zu::app::WrongUsage("there is no command " + unknown.front() +
                                      suggestion(unknown.front(), commandNames(program)) +
                                      "; --help lists them");
        program.exit(error);
        return kWrongUsage;
    } catch (const CLI::ExtrasError& error) {
        throw zu::app::WrongUsage(unknownArgument(program, error));
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? 0 : kWrongUsage;
    } catch (const zu::app::EndWithStatus& end) {
        if (*end.what() != '\0')
            std::cerr << "zu: " << end.what() << '\n';
        return end.status();
    } catch (const std::bad_alloc&) {
        throw zu::app::Failure(drawingPrefix(program) + "not enough memory");
    }
}

/// A command whose output is lost has failed.
int flushOutput(int status) {
    if (!std::cout.flush())
        throw zu::app::Failure("the output can't be written");
    return status;
}

int report(const std::exception& error, int status) {
    std::cerr << "zu: " << error.what() << '\n';
    return status;
}

} // namespace

int main(int argc, char** argv) {
    zuhost::platform::prepareStandardStreams();
    const zu::app::MessageFilter messages;
    try {
        return flushOutput(run(zuhost::platform::programArguments(argc, argv)));
    } catch (const zu::app::WrongUsage& error) {
        return report(error, kWrongUsage);
    } catch (const std::exception& error) {
        return report(error, kFailed);
    }
}
