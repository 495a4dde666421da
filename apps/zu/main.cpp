#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "model/language.h"
#include "shell/completion.h"
#include "shell/description.h"

#include <CLI/CLI.hpp>
#include <rxdlinkr.h>
#include <zucomn/frame.h>
#include <zuhost/application.h>
#include <zuhost/message_box.h>

#include <algorithm>
#include <exception>
#include <iostream>
#include <new>
#include <span>
#include <string>
#include <vector>

namespace {

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
    addCompareCommand(program);
    addSaveCommand(program);
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
}

/// The drawing that the command line names, followed by ": "; empty when it names none.
std::string drawingPrefix(const CLI::App& program) {
    const CLI::App* command = &program;
    while (!command->get_subcommands().empty())
        command = command->get_subcommands().front();
    const CLI::Option* drawing = command->get_option_no_throw("DRAWING");
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
    startLibrary();
    print(zu::app::complete(program, words.subspan(1)));
    return true;
}

int run(int argc, char** argv) {
    CLI::App program("Checks and edits drawings of building services: elements, routes, attributes.", "zu");
    program.require_subcommand(1);
    program.set_help_all_flag("--help-all", "Help of every command");
    zu::app::Command commands(program);
    addCommands(commands);
    if (answer(program, std::vector<std::string>(argv + std::min(argc, 1), argv + argc)))
        return 0;
    program.parse_complete_callback(&startLibrary);
    try {
        program.parse(argc, argv);
        return 0;
    } catch (const CLI::RequiredError& error) {
        const std::vector<std::string> unknown = program.remaining();
        if (program.get_subcommands().empty() && !unknown.empty())
            throw zu::app::WrongUsage("there is no command " + unknown.front() + "; --help lists them");
        program.exit(error);
        return kWrongUsage;
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
    try {
        return flushOutput(run(argc, argv));
    } catch (const zu::app::WrongUsage& error) {
        return report(error, kWrongUsage);
    } catch (const std::exception& error) {
        return report(error, kFailed);
    }
}
