#include "command_line.h"
#include "commands/commands.h"
#include "model/drawing_file.h"
#include "report/output.h"
#include "text.h"

#include <zucomn/model/groups.h>

#include <memory>

namespace zu::app {

namespace {

struct Options {
    DrawingSource drawing;
    bool json = false;
};

void run(const Options& options) {
    const DrawingFile drawing(options.drawing);
    Json array = Json::array();
    TextTable table({"handle", "name", "number", "kind", "members"});
    for (const AcDbObjectId id : drawing.groups()) {
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
    options.json ? printJson(array) : table.print();
}

} // namespace

void addGroupsCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand("groups", "List the groups and their route kinds");
    addDrawing(*command, options->drawing);
    command->add_flag("--json", options->json, "As JSON");
    command->callback([options] { run(*options); });
}

} // namespace zu::app
