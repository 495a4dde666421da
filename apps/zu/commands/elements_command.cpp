#include "batch/batch.h"
#include "command_line.h"
#include "commands/commands.h"
#include "manners/translation.h"
#include "model/drawing_file.h"
#include "model/element.h"
#include "model/filter.h"
#include "report/csv.h"

#include <iostream>
#include <memory>

namespace zu::app {

namespace {

struct Options {
    DrawingSource drawing;
    FilterOptions filter;
    bool routesOnly = false;
    ListingForm form;
};

std::vector<Element> readElements(const std::vector<AcDbObjectId>& ids, bool routesOnly) {
    std::vector<Element> elements;
    for (const AcDbObjectId id : ids) {
        Element element = readElement(id);
        if (!routesOnly || element.isRouteElement())
            elements.push_back(std::move(element));
    }
    return elements;
}

Json toJson(const Element& element) {
    Json points = Json::array();
    for (const AcGePoint3d& point : element.connectionPoints)
        points.push_back({point.x, point.y});
    return {{"handle", element.handle},
            {"block", element.block},
            {"code", element.code},
            {"link_kind", element.linkKind},
            {"layer", element.layer},
            {"locked", element.locked},
            {"origin", {element.origin.x, element.origin.y, element.origin.z}},
            {"connection_points", points},
            {"groups", element.groups}};
}

void printRows(const std::vector<Element>& elements) {
    Json rows = Json::array();
    for (const Element& element : elements) {
        Json row = toJson(element);
        row["what"] = elementCodeName(element.code);
        row["x"] = element.origin.x;
        row["y"] = element.origin.y;
        row["z"] = element.origin.z;
        rows.push_back(std::move(row));
    }
    printCsv({"handle", "block", "code", "what", "link_kind", "layer", "locked", "x", "y", "z",
              "connection_points", "groups"},
             rows);
}

void printTable(const std::vector<Element>& elements) {
    TextTable table({"handle", "block", "what", "kind", "layer", "origin", "points", "groups"});
    for (const Element& e : elements) {
        std::string groups;
        for (const std::string& group : e.groups)
            groups += (groups.empty() ? "" : " ") + group;
        table.addRow(
            {e.handle, e.block, translated(elementCodeName(e.code)), std::to_string(e.linkKind),
             e.locked ? e.layer + " (locked)" : e.layer,
             shortNumber(e.origin.x) + ", " + shortNumber(e.origin.y) + ", " + shortNumber(e.origin.z),
             std::to_string(e.connectionPoints.size()), groups});
    }
    table.print();
    std::cout << translated(std::to_string(elements.size()) + " elements") << '\n';
}

void run(const Options& options) {
    const Filter filter(options.filter);
    const DrawingFile drawing(options.drawing);
    const std::vector<Element> elements = readElements(filter.references(drawing), options.routesOnly);
    if (options.form.csv)
        return printRows(elements);
    if (!options.form.json)
        return printTable(elements);
    Json array = Json::array();
    for (const Element& element : elements)
        array.push_back(toJson(element));
    printJson(array);
}

} // namespace

void addElementsCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command =
        program.add_subcommand("elements", "List the block references of model space with what they are");
    addFilter(*command, options->filter);
    command->add_flag("--routes", options->routesOnly, "Only those whose block name has an element prefix");
    addListingForm(*command, options->form);
    runForEachDrawing(*command, options->drawing, [options] { run(*options); });
}

} // namespace zu::app
