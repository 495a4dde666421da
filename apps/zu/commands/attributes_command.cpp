#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "model/attribute_rows.h"
#include "model/drawing_file.h"
#include "model/settings_file.h"
#include "report/csv.h"

#include <memory>

namespace zu::app {

namespace {

struct Options {
    DrawingSource drawing;
    std::string handle;
    std::string settings;
    ListingForm form;
};

void run(const Options& options) {
    const SettingsFile settings(options.settings);
    const DrawingFile drawing(options.drawing);
    const AttributeRows rows = readAttributeRows(drawing.find(options.handle));
    if (rows.empty() && !options.form.json && !options.form.csv)
        throw Failure("object " + options.handle + " has no attributes");
    if (options.form.json)
        return printJson(Json(rows));
    if (options.form.csv)
        return printCsv({"value_1", "value_2", "name", "id", "value", "kind", "label", "number", "mark"},
                        Json(rows));
    TextTable table({"id", "name", "value", "kind", "label", "no", "flag"});
    for (const auto& row : rows)
        table.addRow({row[3], row[2], row[4], row[5], row[6], row[7], row[8]});
    table.print();
}

} // namespace

void addAttributesCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand("attributes", "Show the attribute rows of an element");
    addDrawing(*command, options->drawing);
    command->add_option("HANDLE", options->handle, "The element's handle")->required();
    command->add_option("--settings", options->settings, "Master settings file, for the names of attributes");
    addListingForm(*command, options->form, "As JSON: an array of rows of nine columns");
    command->callback([options] { run(*options); });
}

} // namespace zu::app
