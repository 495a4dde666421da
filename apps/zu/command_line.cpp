#include "command_line.h"

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

CommandOption* CommandOption::delimited(char separator) {
    option_.delimiter(separator)->allow_extra_args(false);
    return this;
}

CommandOption* CommandOption::excludes(const CommandOption* other) {
    option_.excludes(&other->option_);
    return this;
}

Command* Command::add_subcommand(const std::string& name, const std::string& description) {
    return &commands_.emplace_back(*app_.add_subcommand(name, description));
}

void Command::require_subcommand() {
    app_.require_subcommand(1);
}

template <typename T>
CommandOption* Command::add_option(const std::string& name, T& value, const std::string& description) {
    return keep(app_.add_option(name, value, description));
}

template CommandOption* Command::add_option(const std::string&, std::string&, const std::string&);
template CommandOption* Command::add_option(const std::string&, std::vector<std::string>&,
                                            const std::string&);
template CommandOption* Command::add_option(const std::string&, int&, const std::string&);
template CommandOption* Command::add_option(const std::string&, double&, const std::string&);

CommandOption* Command::add_flag(const std::string& name, bool& value, const std::string& description) {
    return keep(app_.add_flag(name, value, description));
}

void Command::callback(std::function<void()> run) {
    app_.callback(std::move(run));
}

} // namespace zu::app
