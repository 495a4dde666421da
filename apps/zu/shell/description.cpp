#include "shell/description.h"

namespace zu::app {

namespace {

std::string joined(const std::vector<std::string>& names) {
    std::string all;
    for (const std::string& name : names)
        all += (all.empty() ? "" : ",") + name;
    return all;
}

Json optionsJson(const std::vector<OptionDescription>& options) {
    Json all = Json::array();
    for (const OptionDescription& option : options)
        all.push_back({{"name", joined(option.names)},
                       {"description", option.description},
                       {"value", option.value},
                       {"default", option.preset},
                       {"required", option.isRequired},
                       {"repeats", option.repeats}});
    return all;
}

} // namespace

Json descriptionJson(const CommandDescription& command) {
    Json commands = Json::array();
    for (const CommandDescription& below : command.commands)
        commands.push_back(descriptionJson(below));
    return {{"name", command.name},
            {"description", command.description},
            {"arguments", optionsJson(command.arguments)},
            {"options", optionsJson(command.options)},
            {"commands", commands}};
}

} // namespace zu::app
