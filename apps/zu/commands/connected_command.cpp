#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "model/drawing_file.h"
#include "model/element.h"
#include "report/csv.h"
#include "report/output.h"

#include <zucomn/dbservices.h>
#include <zucomn/route.h>

#include <iostream>
#include <memory>
#include <unordered_set>

namespace zu::app {

namespace {

struct Options {
    DrawingSource drawing;
    std::string handle;
    std::string group;
    int kind = 0;
    bool all = false;
    ListingForm form;
};

/// Searches the given group; if null, every group of the element.
AcArray<AcDbObjectId> connectedTo(AcDbObjectId element, AcDbObjectId named, int kind) {
    AcArray<AcDbObjectId> groups;
    if (named.isNull())
        ZuComn_GetGroupID(element, groups);
    else
        groups.append(named);
    AcArray<AcDbObjectId> found;
    std::unordered_set<AcDbObjectId> seen;
    for (const AcDbObjectId group : groups) {
        AcArray<AcDbObjectId> joined;
        RootComn_GetConnectBlock(group, element, joined, nullptr, kind);
        for (const AcDbObjectId other : joined)
            if (seen.insert(other).second)
                found.append(other);
    }
    return found;
}

/// One row for each pair.
void printJoints(const Json& joined) {
    Json rows = Json::array();
    for (const auto& [handle, others] : joined.items())
        for (const Json& other : others)
            rows.push_back({handle, other});
    printCsv({"handle", "connected"}, rows);
}

void runOne(const DrawingFile& drawing, const Options& options, AcDbObjectId group) {
    const AcDbObjectId element = drawing.find(options.handle);
    AcArray<AcGePoint3d> points;
    if (ZuComn_GetConnectPoint(element, points) != 0)
        throw Failure("object " + options.handle + " has no connection points that can be read");
    const AcArray<AcDbObjectId> found = connectedTo(element, group, options.kind);
    if (options.form.json)
        return printJson(Json(handleTexts(found)));
    if (options.form.csv)
        return printJoints({{options.handle, handleTexts(found)}});
    TextTable table({"handle", "block", "what"});
    for (const AcDbObjectId id : found) {
        const Element joined = readElement(id);
        table.addRow({joined.handle, joined.block, elementCodeName(joined.code)});
    }
    table.print();
}

/// Every member of the group (without one: every block reference).
std::vector<AcDbObjectId> everyElement(const DrawingFile& drawing, AcDbObjectId group) {
    if (group.isNull())
        return drawing.references();
    AcArray<AcDbObjectId> members;
    RootComn_GetGroupMember(group, members);
    return {members.begin(), members.end()};
}

void runAll(const DrawingFile& drawing, const Options& options, AcDbObjectId group) {
    Json object = Json::object();
    // Each handle comes once; inserting by key would search the ones before it.
    auto& entries = object.get_ref<Json::object_t&>();
    for (const AcDbObjectId element : everyElement(drawing, group)) {
        entries.emplace_back(handleText(element), handleTexts(connectedTo(element, group, options.kind)));
    }
    if (options.form.json)
        return printJson(object);
    if (options.form.csv)
        return printJoints(object);
    for (const auto& [handle, joined] : object.items()) {
        std::cout << handle << ':';
        for (const auto& other : joined)
            std::cout << ' ' << other.get<std::string>();
        std::cout << '\n';
    }
}

void run(const Options& options) {
    if (options.all == !options.handle.empty())
        throw WrongUsage("name an element's handle, or --all");
    const DrawingFile drawing(options.drawing);
    const AcDbObjectId group = options.group.empty() ? AcDbObjectId() : drawing.findGroup(options.group);
    options.all ? runAll(drawing, options, group) : runOne(drawing, options, group);
}

} // namespace

void addConnectedCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand("connected", "List the elements joined to an element");
    addDrawing(*command, options->drawing);
    command->add_option("HANDLE", options->handle, "The element's handle");
    command->add_option("--group", options->group,
                        "Search this group, by name or handle; else each group of the element");
    command->add_option("--kind", options->kind, "Only elements of this link kind (and kind 0)");
    command->add_flag("--all", options->all, "Every member of the group instead of one element");
    addListingForm(*command, options->form);
    command->callback([options] { run(*options); });
}

} // namespace zu::app
