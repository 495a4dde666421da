#include "batch/batch.h"
#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "model/element.h"
#include "model/filter.h"
#include "model/settings_file.h"
#include "report/csv.h"
#include "text.h"

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

/// Prints quantities for reading, in the user's language.
class QuantityTables {
public:
    QuantityTables() : words_(zucomn::quantityWords()), kinds_(zucomn::routeKinds()) {}

    void printRows(const std::vector<QuantityRow>& rows, const Fields& by) const {
        TextTable table(headings(by));
        for (const QuantityRow& row : rows) {
            std::vector<std::string> cells;
            for (const QuantityField field : by)
                cells.push_back(cell(field, row));
            table.addRow(withQuantity(std::move(cells), row.quantity));
        }
        table.print();
    }

    void printTotals(const Quantities& quantities) const {
        TextTable table(headings({QuantityField::kind, QuantityField::what}));
        for (const zucomn::QuantityTotal& total : quantities.totals)
            table.addRow(withQuantity({kindLabel(total.kind), narrow(zucomn::elementKindLabel(total.code))},
                                      total.quantity));
        table.addRow(withQuantity({narrow(words_.total), ""}, quantities.sum));
        table.print();
    }

private:
    [[nodiscard]] std::vector<std::string> headings(const Fields& by) const {
        std::vector<std::string> texts;
        for (const QuantityField field : by)
            texts.push_back(narrow(words_.fields.at(static_cast<std::size_t>(field))));
        for (const std::wstring* const word : {&words_.count, &words_.length, &words_.trueLength})
            texts.push_back(narrow(*word));
        return texts;
    }

    [[nodiscard]] std::string kindLabel(int kind) const {
        const auto found = std::find_if(kinds_.begin(), kinds_.end(),
                                        [kind](const zucomn::RouteKind& k) { return k.number == kind; });
        if (found != kinds_.end())
            return narrow(found->name);
        return kind < 0 ? "-" : std::to_string(kind);
    }

    [[nodiscard]] std::string cell(QuantityField field, const QuantityRow& row) const {
        if (field == QuantityField::kind)
            return kindLabel(row.kind);
        if (field == QuantityField::what)
            return narrow(zucomn::elementKindLabel(row.code));
        const std::string text = fieldJson(field, row).get<std::string>();
        return text.empty() ? "-" : text;
    }

    static std::vector<std::string> withQuantity(std::vector<std::string> cells, const Quantity& quantity) {
        cells.push_back(std::to_string(quantity.count));
        cells.push_back(shortNumber(quantity.length));
        cells.push_back(shortNumber(quantity.trueLength));
        return cells;
    }

    zucomn::QuantityWords words_;
    std::vector<zucomn::RouteKind> kinds_;
};

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
    const QuantityTables tables;
    tables.printRows(quantities.rows, by);
    std::cout << '\n';
    tables.printTotals(quantities);
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
