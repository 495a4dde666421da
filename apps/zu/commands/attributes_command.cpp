#include "batch/batch.h"
#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "model/attribute_rows.h"
#include "model/filter.h"
#include "model/handle_argument.h"
#include "model/settings_file.h"
#include "report/csv.h"

#include <memory>

namespace zu::app {

namespace {

const std::vector<std::string> kColumns{"value_1", "value_2", "name",   "id",  "value",
                                        "kind",    "label",   "number", "mark"};

struct Options {
    DrawingSource drawing;
    FilterOptions filter;
    std::string handle;
    std::string settings;
    ListingForm form;
};

void addTo(TextTable& table, const AttributeRows& rows, const std::string& handle) {
    for (const auto& row : rows) {
        std::vector<std::string> cells{row[3], row[2], row[4], row[5], row[6], row[7], row[8]};
        if (!handle.empty())
            cells.insert(cells.begin(), handle);
        table.addRow(std::move(cells));
    }
}

void listOne(const DrawingFile& drawing, const Options& options) {
    const AttributeRows rows = readAttributeRows(drawing.find(options.handle));
    if (options.form.json)
        return printJson(Json(rows));
    if (options.form.csv)
        return printCsv(kColumns, Json(rows));
    if (rows.empty())
        throw Failure("object " + options.handle + " has no attributes");
    TextTable table({"id", "name", "value", "kind", "label", "no", "flag"});
    addTo(table, rows, "");
    table.print();
}

/// The elements that have attributes, in drawing order.
void listAll(const DrawingFile& drawing, const Filter& filter, const ListingForm& form) {
    Json elements = Json::array();
    Json lines = Json::array();
    TextTable table({"handle", "id", "name", "value", "kind", "label", "no", "flag"});
    for (const AcDbObjectId id : filter.references(drawing)) {
        const AttributeRows rows = readAttributeRows(id);
        if (rows.empty())
            continue;
        const std::string handle = handleText(id);
        if (form.json) {
            elements.push_back({{"handle", handle}, {"attributes", rows}});
            continue;
        }
        if (!form.csv) {
            addTo(table, rows, handle);
            continue;
        }
        for (const auto& row : rows) {
            Json line(row);
            line.insert(line.begin(), handle);
            lines.push_back(std::move(line));
        }
    }
    if (form.json)
        return printJson(elements);
    if (!form.csv)
        return table.print();
    std::vector<std::string> headings{"handle"};
    headings.insert(headings.end(), kColumns.begin(), kColumns.end());
    printCsv(headings, lines);
}

void run(const Options& options) {
    if (!options.handle.empty() && options.filter.isGiven())
        throw WrongUsage("name an element's handle, or filters that choose elements");
    const Filter filter(options.filter);
    const SettingsFile settings(options.settings);
    const DrawingFile drawing(options.drawing);
    options.handle.empty() ? listAll(drawing, filter, options.form) : listOne(drawing, options);
}

} // namespace

void addAttributesCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand(
        "attributes", "Show the attribute rows of an element, or of all that pass the filters");
    addFilter(*command, options->filter);
    command->add_option("--settings", options->settings, "Master settings file, for the names of attributes");
    addListingForm(*command, options->form, "As JSON: an array of rows of nine columns");
    runForEachDrawing(
        *command, options->drawing, [options] { run(*options); }, handleArgument(options->handle));
}

} // namespace zu::app
