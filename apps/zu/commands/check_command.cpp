#include "batch/batch.h"
#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "manners/translation.h"
#include "model/audit.h"
#include "model/filter.h"
#include "report/csv.h"
#include "report/finding_json.h"
#include "report/json_writer.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <unordered_set>

namespace zu::app {

namespace {

constexpr int kFindings = 1;

struct Options {
    DrawingSource drawing;
    FilterOptions filter;
    SaveOptions saving;
    std::vector<std::string> only;
    std::vector<std::string> except;
    std::string failOn;
    bool repair = false;
    ListingForm form;
};

bool contains(const std::vector<std::string>& texts, const std::string& text) {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

/// The elements whose findings are shown; null shows those of all objects.
using ShownElements = std::unique_ptr<std::unordered_set<std::string>>;

ShownElements shownElements(const Filter& filter, const DrawingFile& drawing, const Options& options) {
    if (!options.filter.isGiven())
        return nullptr;
    const std::vector<std::string> handles = handleTexts(filter.references(drawing));
    return std::make_unique<std::unordered_set<std::string>>(handles.begin(), handles.end());
}

bool concerns(const Finding& finding, const std::unordered_set<std::string>& elements) {
    return elements.contains(finding.handle) ||
           std::any_of(finding.with.begin(), finding.with.end(),
                       [&](const std::string& other) { return elements.contains(other); });
}

bool isShown(const Finding& finding, const ShownElements& elements, const Options& options) {
    return (elements == nullptr || concerns(finding, *elements)) &&
           (options.only.empty() || contains(options.only, finding.code)) &&
           !contains(options.except, finding.code);
}

bool isFailure(const Finding& finding, const Options& options) {
    return !finding.repaired && (options.failOn == "warning" ||
                                 (options.failOn == "error" && finding.severity == zucomn::Severity::error));
}

void requireCodes(const std::vector<std::string>& codes) {
    const std::vector<std::string> known = findingCodes();
    for (const std::string& code : codes) {
        if (contains(known, code))
            continue;
        std::string message = "there is no code " + code + "; the codes are";
        for (const std::string& each : known)
            message += ' ' + each;
        throw WrongUsage(message);
    }
}

void requireValid(const Options& options) {
    if (options.repair == options.saving.output.empty())
        throw WrongUsage("--repair and -o belong together: the repaired drawing is saved there");
    requireCodes(options.only);
    requireCodes(options.except);
}

std::string count(std::ptrdiff_t number, const std::string& what) {
    return translated(std::to_string(number) + ' ' + what + (number == 1 ? "" : "s"));
}

void printListing(const std::vector<Finding>& findings, bool repairing) {
    std::vector<std::string> headings{"severity", "code", "handle", "group", "layer", "problem"};
    if (repairing)
        headings.insert(headings.end() - 1, "repaired");
    TextTable table(headings);
    for (const Finding& finding : findings) {
        table.addCell(translated(severityName(finding.severity)));
        table.addCell(finding.code);
        table.addCell(finding.handle);
        table.addCell(finding.group);
        table.addCell(finding.layer);
        if (repairing)
            table.addCell(finding.repaired ? translated("yes") : "-");
        table.addCell(translated(finding.problem));
    }
    if (!table.empty())
        table.print();
    const auto total = static_cast<std::ptrdiff_t>(findings.size());
    const auto errors = std::count_if(findings.begin(), findings.end(), [](const Finding& finding) {
        return finding.severity == zucomn::Severity::error;
    });
    std::cout << count(total, "problem");
    if (total > 0)
        std::cout << ": " << count(errors, "error") << ", " << count(total - errors, "warning");
    if (repairing) {
        const auto isRepaired = [](const Finding& finding) { return finding.repaired; };
        const auto repaired = std::count_if(findings.begin(), findings.end(), isRepaired);
        std::cout << ", " << translated(std::to_string(repaired) + " repaired");
    }
    std::cout << '\n';
}

void printFindings(const std::vector<Finding>& findings) {
    JsonArrayPrinter array;
    for (const Finding& finding : findings)
        array.print(jsonText(findingJson(finding)));
    array.finish();
}

void print(const std::vector<Finding>& findings, const Options& options) {
    if (!options.form.json && !options.form.csv)
        return printListing(findings, options.repair);
    if (options.form.json)
        return printFindings(findings);
    Json rows = Json::array();
    for (const Finding& finding : findings)
        rows.push_back(findingJson(finding));
    printCsv({"code", "severity", "handle", "problem", "repaired", "position", "with", "group", "layer"},
             rows);
}

void run(const Options& options) {
    requireValid(options);
    const Filter filter(options.filter);
    DrawingFile drawing(options.drawing);
    const ShownElements elements = shownElements(filter, drawing, options); // before a repair drops groups
    std::vector<Finding> findings = audit(drawing, options.repair);
    if (options.repair)
        drawing.save(options.saving);
    std::erase_if(findings, [&](const Finding& finding) { return !isShown(finding, elements, options); });
    print(findings, options);
    const auto failures = std::count_if(findings.begin(), findings.end(),
                                        [&](const Finding& finding) { return isFailure(finding, options); });
    if (failures > 0)
        throw EndWithStatus(kFindings, options.drawing.path + ": " + count(failures, "unrepaired finding") +
                                           " for --fail-on " + options.failOn);
}

} // namespace

void addCheckCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand(
        "check", "Audit the drawing and its routes: damage, and probable mistakes of design");
    addFilter(*command, options->filter);
    command->add_option("--only", options->only, "Only findings with these codes, separated by commas")
        ->delimited(',');
    command->add_option("--except", options->except, "No findings with these codes, separated by commas")
        ->delimited(',');
    command
        ->add_option("--fail-on", options->failOn,
                     "End with status 1 when a finding is left that is an 'error', or at least a 'warning'")
        ->choices({"error", "warning"});
    command->add_flag("--repair", options->repair, "Repair what can be repaired without losing anything");
    addSaveOptions(*command, options->saving, "Where to save the repaired drawing");
    addListingForm(*command, options->form);
    runForEachDrawing(*command, options->drawing, [options] { run(*options); });
}

} // namespace zu::app
