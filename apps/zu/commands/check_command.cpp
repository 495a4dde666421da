#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "model/audit.h"
#include "report/output.h"

#include <algorithm>
#include <iostream>
#include <memory>

namespace zu::app {

namespace {

struct Options {
    DrawingSource drawing;
    SaveOptions saving;
    bool repair = false;
    bool json = false;
};

void printListing(const std::vector<Finding>& findings, bool repairing) {
    TextTable table({"handle", "repaired", "problem"});
    for (const Finding& finding : findings)
        table.addRow({finding.handle, finding.repaired ? "yes" : "no", finding.problem});
    if (!table.empty())
        table.print();
    std::cout << findings.size() << (findings.size() == 1 ? " problem" : " problems");
    if (repairing)
        std::cout << ", " << std::count_if(findings.begin(), findings.end(), [](const Finding& f) {
            return f.repaired;
        }) << " repaired";
    std::cout << '\n';
}

void print(const std::vector<Finding>& findings, const Options& options) {
    if (!options.json) {
        printListing(findings, options.repair);
        return;
    }
    Json array = Json::array();
    for (const Finding& finding : findings)
        array.push_back(
            {{"handle", finding.handle}, {"problem", finding.problem}, {"repaired", finding.repaired}});
    printJson(array);
}

void run(const Options& options) {
    if (options.repair == options.saving.output.empty())
        throw WrongUsage("--repair and -o belong together: the repaired drawing is saved there");
    DrawingFile drawing(options.drawing);
    const std::vector<Finding> findings = audit(drawing, options.repair);
    if (options.repair)
        drawing.save(options.saving);
    print(findings, options);
}

} // namespace

void addCheckCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand(
        "check", "Audit the routes: groups, attribute and link records, connection points");
    addDrawing(*command, options->drawing);
    command->add_flag("--repair", options->repair, "Repair what can be repaired without losing anything");
    addSaveOptions(*command, options->saving, "Where to save the repaired drawing");
    command->add_flag("--json", options->json, "As JSON");
    command->callback([options] { run(*options); });
}

} // namespace zu::app
