#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "manners/messages.h"
#include "manners/translation.h"
#include "model/language.h"
#include "shell/completion.h"
#include "shell/description.h"

#include <rxdlinkr.h>
#include <zucomn/frame.h>
#include <zuhost/application.h>
#include <zuhost/message_box.h>
#include <zuhost/platform/streams.h>

#include <exception>
#include <iostream>
#include <new>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace {

using zu::app::translated;

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

/// What the shells and the manual pages ask for.
bool answer(const zu::app::CommandLine& commandLine, std::span<const std::string> words) {
    if (words.empty() || (words.front() != "--complete" && words.front() != "--describe"))
        return false;
    if (words.front() == "--describe")
        std::cout << zu::app::descriptionJson(commandLine.description()).dump() << '\n';
    else
        print(zu::app::complete(commandLine.description(), words.subspan(1)));
    return true;
}

/// Starts a message about a drawing.
std::string prefix(const std::string& drawing) {
    return drawing.empty() ? "" : drawing + ": ";
}

int run(std::vector<std::string> words) {
    startLibrary();
    zu::app::CommandLine commandLine(
        "zu", translated("Checks and edits drawings of building services: elements, routes, attributes."),
        "zu " ZU_VERSION);
    addCommands(commandLine.commands());
    if (!words.empty())
        words.erase(words.begin());
    if (answer(commandLine, words))
        return 0;
    try {
        return commandLine.run(std::move(words));
    } catch (const zu::app::EndWithStatus& end) {
        if (*end.what() != '\0')
            std::cerr << "zu: " << end.what() << '\n';
        return end.status();
    } catch (const std::bad_alloc&) {
        throw zu::app::Failure(prefix(commandLine.drawing()) + "not enough memory");
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
        return report(error, zu::app::WrongUsage::kStatus);
    } catch (const std::exception& error) {
        return report(error, zu::app::Failure::kStatus);
    }
}
