#include "shell/description.h"

#include <CLI/CLI.hpp>

namespace zu::app {

namespace {

Json describeOption(const CLI::Option& option) {
    const bool takesValue = option.get_items_expected_max() > 0;
    return {{"name", option.get_name(false, !option.get_positional())},
            {"description", option.get_description()},
            {"value", takesValue ? option.get_type_name() : ""},
            {"default", option.get_default_str()},
            {"required", option.get_required()},
            {"repeats", option.get_items_expected_max() > 1}};
}

} // namespace

Json describe(const CLI::App& command) {
    Json arguments = Json::array();
    Json options = Json::array();
    for (const CLI::Option* option : command.get_options())
        (option->get_positional() ? arguments : options).push_back(describeOption(*option));
    Json commands = Json::array();
    for (const CLI::App* below : command.get_subcommands({}))
        commands.push_back(describe(*below));
    return {{"name", command.get_name()},
            {"description", command.get_description()},
            {"arguments", arguments},
            {"options", options},
            {"commands", commands}};
}

} // namespace zu::app
