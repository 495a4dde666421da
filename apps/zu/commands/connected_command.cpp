#include "batch/batch.h"
#include "command_line.h"
#include "commands/commands.h"
#include "failure.h"
#include "model/drawing_file.h"
#include "model/element.h"
#include "model/filter.h"
#include "model/handle_argument.h"
#include "report/csv.h"
#include "report/output.h"
#include "text.h"

#include <zucomn/dbservices.h>
#include <zucomn/route.h>

#include <memory>
#include <unordered_map>
#include <unordered_set>

namespace zu::app {

namespace {

struct Options {
    DrawingSource drawing;
    FilterOptions filter;
    std::string handle;
    std::string group;
    int kind = 0;
    bool all = false;
    ListingForm form;
};

/// What an element is joined to, in the order found.
struct Joints {
    AcDbObjectId element;
    AcArray<AcDbObjectId> joined;
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

void runOne(const DrawingFile& drawing, const Options& options, const Filter& filter, AcDbObjectId group) {
    const AcDbObjectId element = drawing.find(options.handle);
    AcArray<AcGePoint3d> points;
    if (ZuComn_GetConnectPoint(element, points) != 0)
        throw Failure("object " + options.handle + " has no connection points that can be read");
    const AcArray<AcDbObjectId> joined = connectedTo(element, group, options.kind);
    const std::vector<AcDbObjectId> found = filter.pass(drawing, {joined.begin(), joined.end()});
    if (options.form.json)
        return printJson(Json(handleTexts(found)));
    if (options.form.csv)
        return printJoints({{options.handle, handleTexts(found)}});
    TextTable table({"handle", "block", "what"});
    for (const AcDbObjectId id : found) {
        const Element joinedElement = readElement(id);
        table.addRow({joinedElement.handle, joinedElement.block, elementCodeName(joinedElement.code)});
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

/// What an element is, read once however many others it is joined to.
class Names {
public:
    std::vector<std::string> cells(const std::string& handle, AcDbObjectId id) {
        const auto [entry, isNew] = known_.try_emplace(id);
        if (isNew)
            if (const auto element = zucomn::readElement(id))
                entry->second = {narrow(element->block), elementCodeName(element->code)};
        return {handle, entry->second.block, entry->second.what};
    }

private:
    struct Name {
        std::string block;
        std::string what;
    };
    std::unordered_map<AcDbObjectId, Name> known_;
};

/// One row for each joint, and one for an element without any.
void printTable(const std::vector<Joints>& all) {
    TextTable table({"handle", "block", "what", "joined", "block", "what"});
    Names names;
    for (const Joints& joints : all) {
        const std::vector<std::string> element = names.cells(handleText(joints.element), joints.element);
        if (joints.joined.isEmpty())
            table.addRow({element[0], element[1], element[2], "", "", ""});
        for (const AcDbObjectId id : joints.joined) {
            const std::vector<std::string> other = names.cells(handleText(id), id);
            table.addRow({element[0], element[1], element[2], other[0], other[1], other[2]});
        }
    }
    table.print();
}

void runAll(const DrawingFile& drawing, const Options& options, const Filter& filter, AcDbObjectId group) {
    std::vector<Joints> all;
    for (const AcDbObjectId element : filter.pass(drawing, everyElement(drawing, group)))
        all.push_back({element, connectedTo(element, group, options.kind)});
    if (!options.form.json && !options.form.csv)
        return printTable(all);
    Json object = Json::object();
    // Each handle comes once; inserting by key would search the ones before it.
    auto& entries = object.get_ref<Json::object_t&>();
    for (const Joints& joints : all)
        entries.emplace_back(handleText(joints.element), handleTexts(joints.joined));
    options.form.json ? printJson(object) : printJoints(object);
}

void run(const Options& options) {
    if (options.all == !options.handle.empty())
        throw WrongUsage("name an element's handle, or --all");
    const Filter filter(options.filter);
    const DrawingFile drawing(options.drawing);
    const AcDbObjectId group = options.group.empty() ? AcDbObjectId() : drawing.findGroup(options.group);
    options.all ? runAll(drawing, options, filter, group) : runOne(drawing, options, filter, group);
}

} // namespace

void addConnectedCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command =
        program.add_subcommand("connected", "List the elements joined to an element, or to each of many");
    addNarrowFilter(*command, options->filter);
    command->add_option("--group", options->group,
                        "Search this group, by name or handle; else each group of the element");
    command->add_option("--kind", options->kind, "Only elements of this link kind (and kind 0)");
    command->add_flag(
        "--all", options->all,
        "Every member of the group that passes the filters; with HANDLE they filter what it is joined to");
    addListingForm(*command, options->form);
    runForEachDrawing(
        *command, options->drawing, [options] { run(*options); }, handleArgument(options->handle));
}

} // namespace zu::app
