#include "batch/batch.h"
#include "command_line.h"
#include "commands/commands.h"
#include "model/filter.h"
#include "report/csv.h"
#include "text.h"

#include <zucomn/model/groups.h>

#include <algorithm>
#include <memory>
#include <unordered_set>

namespace zu::app {

namespace {

struct Options {
    DrawingSource drawing;
    FilterOptions filter;
    ListingForm form;
};

/// With a filter, the groups that have a member that passes; `--group` also names the only group.
std::vector<AcDbObjectId> shownGroups(const DrawingFile& drawing, const Filter& filter,
                                      const FilterOptions& options) {
    std::vector<AcDbObjectId> groups = drawing.groups();
    if (!options.group.empty())
        groups = {drawing.findGroup(options.group)};
    if (!options.isGiven())
        return groups;
    const std::vector<AcDbObjectId> passed = filter.references(drawing);
    const std::unordered_set<AcDbObjectId> elements(passed.begin(), passed.end());
    std::erase_if(groups, [&](AcDbObjectId id) {
        const std::vector<AcDbObjectId> members = zucomn::readGroup(id).value_or(zucomn::Group()).members;
        return std::none_of(members.begin(), members.end(),
                            [&](AcDbObjectId member) { return elements.contains(member); });
    });
    return groups;
}

void run(const Options& options) {
    const Filter filter(options.filter);
    const DrawingFile drawing(options.drawing);
    Json array = Json::array();
    TextTable table({"handle", "name", "number", "kind", "members"});
    for (const AcDbObjectId id : shownGroups(drawing, filter, options.filter)) {
        const zucomn::Group group = zucomn::readGroup(id).value_or(zucomn::Group());
        const std::string handle = handleText(id);
        const std::string name = narrow(group.name);
        array.push_back({{"handle", handle},
                         {"name", name},
                         {"number", group.number},
                         {"kind", group.kind},
                         {"members", handleTexts(group.members)}});
        table.addRow({handle, name, std::to_string(group.number), std::to_string(group.kind),
                      std::to_string(group.members.size())});
    }
    if (options.form.csv)
        return printCsv({"handle", "name", "number", "kind", "members"}, array);
    options.form.json ? printJson(array) : table.print();
}

} // namespace

void addGroupsCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand("groups", "List the groups and their route kinds");
    addFilter(*command, options->filter);
    addListingForm(*command, options->form);
    runForEachDrawing(*command, options->drawing, [options] { run(*options); });
}

} // namespace zu::app
