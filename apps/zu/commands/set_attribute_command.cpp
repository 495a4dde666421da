#include "batch/batch.h"
#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "manners/suggestion.h"
#include "manners/translation.h"
#include "model/attribute_edit.h"
#include "model/attribute_rows.h"
#include "model/filter.h"
#include "model/settings_file.h"
#include "report/csv.h"
#include "text.h"

#include <zucomn/model/attributes.h>
#include <zuhost/texts.h>

#include <algorithm>
#include <iostream>
#include <memory>

namespace zu::app {

namespace {

struct Options {
    DrawingSource drawing;
    FilterOptions filter;
    std::string key;
    std::string value;
    std::vector<std::string> handles;
    std::string settings;
    SaveOptions saving;
    ListingForm form;
};

std::vector<AcDbObjectId> targets(const DrawingFile& drawing, const Options& options) {
    if (options.handles.empty())
        return drawing.references();
    std::vector<AcDbObjectId> ids;
    for (const std::string& handle : options.handles) {
        const AcDbObjectId id = drawing.find(handle);
        if (std::find(ids.begin(), ids.end(), id) == ids.end())
            ids.push_back(id);
    }
    return ids;
}

void printAsJson(const AttributeEdit& edit) {
    Json skipped = Json::array();
    for (const SkippedElement& element : edit.skipped)
        skipped.push_back({{"handle", element.handle}, {"why", element.why}});
    printJson({{"changed", edit.changed}, {"skipped", skipped}});
}

void printAsCsv(const AttributeEdit& edit) {
    Json rows = Json::array();
    for (const std::string& handle : edit.changed)
        rows.push_back({handle, "changed", ""});
    for (const SkippedElement& element : edit.skipped)
        rows.push_back({element.handle, "skipped", element.why});
    printCsv({"handle", "outcome", "why"}, rows);
}

void print(const AttributeEdit& edit, const ListingForm& form) {
    if (form.json)
        return printAsJson(edit);
    if (form.csv)
        return printAsCsv(edit);
    std::cout << translated(std::to_string(edit.changed.size()) + " elements changed") << '\n';
    for (const SkippedElement& element : edit.skipped)
        std::cout << translated("skipped " + element.handle + ": " + element.why) << '\n';
}

void requireStorable(const std::string& value) {
    switch (zucomn::valueFault(zuhost::viewOf(wide(value)))) {
    case zucomn::ValueFault::placeholder:
        throw WrongUsage("the value \"" + value + "\" stands for different values and is never stored");
    case zucomn::ValueFault::separator:
        throw WrongUsage("a value can't hold \"|\", which separates the fields of the record");
    case zucomn::ValueFault::lineEnd:
        throw WrongUsage("a value can't hold a line end");
    case zucomn::ValueFault::none:
        break;
    }
    if (narrow(zuhost::viewOf(wide(value))) != value)
        throw WrongUsage("the value is not valid UTF-8");
}

std::string similarId(const DrawingFile& drawing, const std::string& key) {
    std::vector<std::string> ids;
    for (const auto& [id, name] : attributeIds(drawing.references()))
        ids.push_back(id);
    return std::find(ids.begin(), ids.end(), key) == ids.end() ? suggestion(key, ids) : "";
}

void run(const Options& options) {
    requireStorable(options.value);
    const Filter filter(options.filter);
    const SettingsFile settings(options.settings);
    if (!options.settings.empty() && !mayEditAttribute(options.key))
        throw Failure("attribute " + options.key + " is read-only in the parameter table");
    DrawingFile drawing(options.drawing);
    const AttributeEdit edit = editAttribute(filter.pass(drawing, targets(drawing, options)), options.key,
                                             options.value, !options.handles.empty());
    if (edit.changed.empty() && edit.skipped.empty())
        throw Failure("no element " + std::string(options.filter.isGiven() ? "that passes the filter " : "") +
                      "has an attribute " + options.key + similarId(drawing, options.key));
    drawing.save(options.saving);
    print(edit, options.form);
}

} // namespace

void addSetAttributeCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand(
        "set-attribute", "Set one attribute on some or all elements that have it, and save");
    addFilter(*command, options->filter);
    command->add_option("--handles", options->handles, "Only these elements, by handle, with commas between")
        ->delimited(',');
    command->add_option("--settings", options->settings,
                        "Master settings file; its parameter table says which attributes may be edited");
    addSaveOptions(*command, options->saving, kWhereToSave)->required();
    addListingForm(*command, options->form);
    runForEachDrawing(*command, options->drawing, [options] { run(*options); },
                      {{{"KEY", options->key, "The attribute's id, such as S401"},
                        {"VALUE", options->value, "The new value"}}});
}

} // namespace zu::app
