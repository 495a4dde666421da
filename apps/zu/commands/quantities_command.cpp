#include "batch/batch.h"
#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "manners/translation.h"
#include "model/filter.h"
#include "model/settings_file.h"
#include "report/csv.h"
#include "text.h"

#include <zucomn/model/elements.h>
#include <zucomn/model/quantities.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <memory>

namespace zu::app {

namespace {

using zucomn::Quantities;
using zucomn::Quantity;
using zucomn::QuantityField;
using zucomn::QuantityRow;

using Fields = std::vector<QuantityField>;

/// In the order of the fields.
constexpr std::array<const char*, 6> kFieldNames{"kind", "group", "what", "block", "size", "use"};

struct Options {
    DrawingSource drawing;
    FilterOptions filter;
    std::vector<std::string> by;
    std::string settings;
    ListingForm form;
    bool all = false;
};

const char* nameOf(QuantityField field) {
    return kFieldNames.at(static_cast<std::size_t>(field));
}

Fields parseFields(const std::vector<std::string>& names) {
    Fields fields;
    for (const std::string& name : names) {
        const auto* const found = std::find(kFieldNames.begin(), kFieldNames.end(), name);
        const auto field = static_cast<QuantityField>(found - kFieldNames.begin());
        if (found == kFieldNames.end())
            throw WrongUsage(
                "--by takes kind, group, what, block, size and use, separated by commas, not \"" + name +
                '"');
        if (std::find(fields.begin(), fields.end(), field) == fields.end())
            fields.push_back(field);
    }
    return fields;
}

Json fieldJson(QuantityField field, const QuantityRow& row) {
    switch (field) {
    case QuantityField::kind:
        return row.kind;
    case QuantityField::group:
        return narrow(row.group);
    case QuantityField::what:
        return narrow(zucomn::elementKindName(row.code));
    case QuantityField::block:
        return narrow(row.block);
    case QuantityField::size:
        return narrow(row.size);
    case QuantityField::use:
        return narrow(row.use);
    }
    return {};
}

void addQuantity(const Quantity& quantity, Json& object) {
    object["count"] = quantity.count;
    object["length"] = quantity.length;
    object["true_length"] = quantity.trueLength;
}

Json rowsJson(const Quantities& quantities, const Fields& by) {
    Json rows = Json::array();
    for (const QuantityRow& row : quantities.rows) {
        Json& object = rows.emplace_back(Json::object());
        for (const QuantityField field : by)
            object[nameOf(field)] = fieldJson(field, row);
        addQuantity(row.quantity, object);
    }
    return rows;
}

Json totalsJson(const Quantities& quantities) {
    Json totals = Json::array();
    for (const zucomn::QuantityTotal& total : quantities.totals) {
        Json& object = totals.emplace_back(Json::object());
        object["kind"] = total.kind;
        object["what"] = narrow(zucomn::elementKindName(total.code));
        addQuantity(total.quantity, object);
    }
    return totals;
}

void printRows(const Quantities& quantities, const Fields& by) {
    std::vector<std::string> headings;
    std::transform(by.begin(), by.end(), std::back_inserter(headings), nameOf);
    headings.insert(headings.end(), {"count", "length", "true_length"});
    printCsv(headings, rowsJson(quantities, by));
}

TextTable makeTable(const Fields& by) {
    std::vector<std::string> headings;
    std::transform(by.begin(), by.end(), std::back_inserter(headings), nameOf);
    headings.insert(headings.end(), {"count", "length in plan", "true length"});
    return TextTable(headings);
}

std::vector<std::string> withQuantity(std::vector<std::string> cells, const Quantity& quantity) {
    cells.push_back(std::to_string(quantity.count));
    cells.push_back(shortNumber(quantity.length));
    cells.push_back(shortNumber(quantity.trueLength));
    return cells;
}

std::string kindText(int kind) {
    return kind < 0 ? "-" : std::to_string(kind);
}

std::string cell(QuantityField field, const QuantityRow& row) {
    if (field == QuantityField::kind)
        return kindText(row.kind);
    const std::string text = fieldJson(field, row).get<std::string>();
    if (field == QuantityField::what)
        return translated(text);
    return text.empty() ? "-" : text;
}

void printListing(const Quantities& quantities, const Fields& by) {
    TextTable rows = makeTable(by);
    for (const QuantityRow& row : quantities.rows) {
        std::vector<std::string> cells;
        for (const QuantityField field : by)
            cells.push_back(cell(field, row));
        rows.addRow(withQuantity(std::move(cells), row.quantity));
    }
    TextTable totals = makeTable({QuantityField::kind, QuantityField::what});
    for (const zucomn::QuantityTotal& total : quantities.totals)
        totals.addRow(withQuantity(
            {kindText(total.kind), translated(narrow(zucomn::elementKindName(total.code)))}, total.quantity));
    totals.addRow(withQuantity({translated("total"), ""}, quantities.sum));
    rows.print();
    std::cout << '\n';
    totals.print();
}

void warnOfUnmeasured(const Quantities& quantities, const std::string& drawing) {
    for (const AcDbObjectId line : quantities.linesWithoutLength)
        std::cerr << drawing << ": warning: route line " << handleText(line)
                  << " does not have two connection points; its length counts as 0\n";
}

void print(const Quantities& quantities, const Fields& by, const ListingForm& form) {
    if (form.json)
        return printJson({{"rows", rowsJson(quantities, by)}, {"totals", totalsJson(quantities)}});
    if (form.csv)
        return printRows(quantities, by);
    printListing(quantities, by);
}

void run(const Options& options) {
    const Filter filter(options.filter);
    const SettingsFile settings(options.settings);
    zucomn::QuantityQuery query;
    if (!options.by.empty())
        query.by = parseFields(options.by);
    query.includesOthers = options.all;
    DrawingFile drawing(options.drawing);
    query.filter = filter.in(drawing);
    const Quantities quantities = zucomn::countQuantities(drawing.database(), query);
    warnOfUnmeasured(quantities, options.drawing.path);
    print(quantities, query.by, options.form);
}

} // namespace

void addQuantitiesCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand(
        "quantities", "Count the elements and measure the route lines: a bill of parts");
    addFilter(*command, options->filter);
    command
        ->add_option(
            "--by", options->by,
            "What quantities are told apart by, separated by commas: kind, group, what, block, size, "
            "use; kind,what,block,size without the option")
        ->delimited(',');
    command->add_flag("--all", options->all, "Also block references whose name has no element prefix");
    command->add_option("--settings", options->settings,
                        "Master settings file, for the attributes that hold size, use and height");
    addListingForm(*command, options->form);
    runForEachDrawing(*command, options->drawing, [options] { run(*options); });
}

} // namespace zu::app
