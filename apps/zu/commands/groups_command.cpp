#include "command_line.h"
#include "commands/commands.h"
#include "model/drawing_file.h"
#include "model/group.h"
#include "report/output.h"

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
        const Group group = readGroup(id);
        const std::string handle = handleText(id);
        array.push_back({{"handle", handle},
                         {"name", group.name},
                         {"number", group.number},
                         {"kind", group.kind},
                         {"members", handleTexts(group.members)}});
        table.addRow({handle, group.name, std::to_string(group.number), std::to_string(group.kind),
                      std::to_string(group.members.length())});
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
