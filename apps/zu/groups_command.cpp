#include "commands.h"
#include "drawing_file.h"
#include "output.h"
#include "text.h"

#include <CLI/CLI.hpp>
#include <zucomn/route.h>

#include <memory>

namespace zu::app {

namespace {

struct Options {
    std::string drawing;
    bool json = false;
};

struct Group {
    std::string handle;
    std::string name;
    int number = 0;
    int kind = 0;
    AcArray<AcDbObjectId> members;
};

/// The number by which route groups are ranked: the five characters behind "RTGR", else what follows "*A".
int groupNumber(const CString& name) {
    const int marked = name.Find(L"RTGR");
    return _wtoi(marked >= 0 ? name.Mid(marked + 4, 5) : name.Mid(2));
}

Group readGroup(AcDbObjectId id) {
    Group group;
    CString name;
    group.handle = handleText(id);
    RootComn_GetGroupNameFromGroupOid(id, name);
    group.name = narrow(name.view());
    group.number = groupNumber(name);
    RootComn_GetRootKind2(id, &group.kind);
    RootComn_GetGroupMember(id, group.members);
    return group;
}

void run(const Options& options) {
    const DrawingFile drawing(options.drawing);
    Json array = Json::array();
    TextTable table({"handle", "name", "number", "kind", "members"});
    for (const AcDbObjectId id : drawing.groups()) {
        const Group group = readGroup(id);
        array.push_back({{"handle", group.handle},
                         {"name", group.name},
                         {"number", group.number},
                         {"kind", group.kind},
                         {"members", handleTexts(group.members)}});
        table.addRow({group.handle, group.name, std::to_string(group.number), std::to_string(group.kind),
                      std::to_string(group.members.length())});
    }
    options.json ? printJson(array) : table.print();
}

} // namespace

void addGroupsCommand(CLI::App& program) {
    auto options = std::make_shared<Options>();
    CLI::App* command = program.add_subcommand("groups", "List the groups and their route kinds");
    command->add_option("DRAWING", options->drawing, "The drawing")->required();
    command->add_flag("--json", options->json, "As JSON");
    command->callback([options] { run(*options); });
}

} // namespace zu::app
