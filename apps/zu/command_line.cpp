#include "command_line.h"

#include "manners/translation.h"

#include <CLI/CLI.hpp>

#include <utility>

namespace zu::app {

CommandOption* CommandOption::required() {
    option_.required();
    return this;
}

CommandOption* CommandOption::capture_default_str() {
    option_.capture_default_str();
    return this;
}

CommandOption* CommandOption::range(int least, int greatest) {
    option_.check(CLI::Range(least, greatest));
    return this;
}

CommandOption* CommandOption::not_negative() {
    option_.check(CLI::NonNegativeNumber);
    return this;
}

CommandOption* CommandOption::choices(std::vector<std::string> values) {
    option_.check(CLI::IsMember(std::move(values)));
    return this;
}

CommandOption* CommandOption::delimited(char separator) {
    option_.delimiter(separator)->allow_extra_args(false);
    return this;
}

CommandOption* CommandOption::excludes(const CommandOption* other) {
    option_.excludes(&other->option_);
    return this;
}

Command* Command::add_subcommand(const std::string& name, const std::string& description) {
    CLI::App* const command = app_.add_subcommand(name, translated(description));
    // Made before the defaults of options are inherited.
    for (CLI::Option* const help : command->get_options())
        help->group(translated("Options"));
    return &commands_.emplace_back(*command);
}

void Command::require_subcommand() {
    app_.require_subcommand(1);
}

template <typename T>
CommandOption* Command::add_option(const std::string& name, T& value, const std::string& description) {
    return keep(app_.add_option(name, value, translated(description)));
}

template CommandOption* Command::add_option(const std::string&, std::string&, const std::string&);
template CommandOption* Command::add_option(const std::string&, std::vector<std::string>&,
                                            const std::string&);
template CommandOption* Command::add_option(const std::string&, int&, const std::string&);
template CommandOption* Command::add_option(const std::string&, double&, const std::string&);

CommandOption* Command::add_flag(const std::string& name, bool& value, const std::string& description) {
    return keep(app_.add_flag(name, value, translated(description)));
}

void Command::callback(std::function<void()> run) {
    app_.callback(std::move(run));
}

std::vector<std::string> Command::path() const {
    std::vector<std::string> names;
    for (const CLI::App* app = &app_; app->get_parent() != nullptr; app = app->get_parent())
        names.insert(names.begin(), app->get_name());
    return names;
}

std::vector<GivenOption> Command::givenOptions() const {
    std::vector<GivenOption> given;
    for (const CLI::Option* option : app_.get_options()) {
        if (option->count() == 0 || option->get_positional())
            continue;
        const bool isFlag = option->get_items_expected_max() == 0;
        given.push_back({option->get_name(), isFlag ? std::vector<std::string>() : option->results()});
    }
    return given;
}

} // namespace zu::app
