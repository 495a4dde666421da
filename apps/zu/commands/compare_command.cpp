#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "model/comparison.h"
#include "plan/comparison_picture.h"
#include "report/csv.h"
#include "report/differences.h"

#include <memory>

namespace zu::app {

namespace {

constexpr int kDifferent = 1;
constexpr int kTrouble = 2;

struct Options {
    DrawingSource before;
    DrawingSource after;
    bool strict = false;
    ListingForm form;
    std::string picture;
};

bool compareAndPrint(const Options& options) {
    DrawingFile before({options.before.path, options.strict});
    DrawingFile after({options.after.path, options.strict});
    const zucomn::DrawingDifferences differences = compare(before, after);
    if (options.form.json)
        printJson(differencesJson(differences));
    else if (options.form.csv)
        printDifferenceRows(differences);
    else
        printDifferences(differences);
    if (!options.picture.empty())
        saveComparison(after.database(), differences, options.picture);
    return differences.isEmpty();
}

/// Status 1 means different, so that failures have another.
void run(const Options& options) {
    bool isSame = false;
    try {
        isSame = compareAndPrint(options);
    } catch (const std::bad_alloc&) {
        throw EndWithStatus(kTrouble, "not enough memory");
    } catch (const std::exception& error) {
        throw EndWithStatus(kTrouble, error.what());
    }
    if (!isSame)
        throw EndWithStatus(kDifferent);
}

} // namespace

void addCompareCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand(
        "compare", "List what differs between two drawings; status 0 the same, 1 different, 2 failed");
    command->add_option("A", options->before.path, "The first drawing")->required();
    command->add_option("B", options->after.path, "The second drawing")->required();
    command->add_flag("--strict", options->strict, "Refuse drawings that would open with warnings");
    addListingForm(*command, options->form);
    command->add_option("-o,--output", options->picture,
                        "A picture, .png, .svg or .pdf: removed red, added green, changed amber");
    command->callback([options] { run(*options); });
}

} // namespace zu::app
