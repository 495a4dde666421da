#include "command_line.h"

#include "manners/translation.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <utility>

namespace zu::app {

namespace {

/// The number of words at the end that are values of the last arguments; the list keeps at least one.
std::size_t lastWords(const std::vector<std::string>& words, const LastArguments& last) {
    const std::size_t most = std::min(words.size() - 1, last.arguments.size());
    return last.accepts == nullptr || (most > 0 && last.accepts(words.back())) ? most : 0;
}

} // namespace

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

CommandOption* CommandOption::file_or_folder() {
    takesFolder_ = true;
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

void Command::add_list(const std::string& name, std::vector<std::string>& values,
                       const std::string& description, const LastArguments& last) {
    // The parser gives every word to the list; its callback runs before required arguments are looked for.
    const auto distribute = [this, &values, last](std::vector<std::string> words) {
        const auto end = words.end() - static_cast<std::ptrdiff_t>(lastWords(words, last));
        auto argument = last_.begin();
        for (auto word = end; word != words.end(); ++word)
            (*argument++)->add_result(*word);
        values.assign(words.begin(), end);
    };
    app_.add_option_function<std::vector<std::string>>(name, distribute, translated(description))->required();
    for (const LastArgument& argument : last.arguments)
        last_.push_back(app_.add_option(argument.name, argument.value, translated(argument.description))
                            ->required(last.accepts == nullptr));
}

CommandOption* Command::add_flag(const std::string& name, bool& value, const std::string& description) {
    return keep(app_.add_flag(name, value, translated(description)));
}

void Command::callback(std::function<void()> run) {
    app_.callback(std::move(run));
}

void Command::takeAnything() {
    app_.prefix_command();
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
        const bool takesFolder =
            std::any_of(options_.begin(), options_.end(), [option](const CommandOption& own) {
                return &own.option_ == option && own.takesFolder_;
            });
        given.push_back(
            {option->get_name(), isFlag ? std::vector<std::string>() : option->results(), takesFolder});
    }
    return given;
}

std::vector<std::string> Command::lastArguments() const {
    std::vector<std::string> values;
    for (const CLI::Option* argument : last_)
        values.insert(values.end(), argument->results().begin(), argument->results().end());
    return values;
}

} // namespace zu::app
