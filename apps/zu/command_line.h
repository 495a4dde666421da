#pragma once

#include <functional>
#include <list>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace zu::app {

/// One option or argument of a command.
class CommandOption {
public:
    explicit CommandOption(CLI::Option& option) : option_(option) {}

    CommandOption* required();
    /// Shows the current value of its variable in the help.
    CommandOption* capture_default_str();
    CommandOption* range(int least, int greatest);
    CommandOption* not_negative();
    /// Rejects other values.
    CommandOption* choices(std::vector<std::string> values);
    /// Splits values at a character; the option takes one argument each time it is given.
    CommandOption* delimited(char separator);
    CommandOption* excludes(const CommandOption* other);

private:
    CLI::Option& option_;
};

/// An option as a call gave it.
struct GivenOption {
    std::string name;                ///< Its long name, such as "--json".
    std::vector<std::string> values; ///< None for a flag.
};

/// A command with its options, under the names of the command-line parser that does the work. Only the source
/// of this class and main() include the parser: compiling its headers in every command took a third of the
/// build. Options and subcommands live as long as their command; a variable given for a value must live until
/// parsing ends.
class Command {
public:
    explicit Command(CLI::App& app) : app_(app) {}

    Command* add_subcommand(const std::string& name, const std::string& description);
    void require_subcommand();
    /// The value is a text, a list of texts, an int or a double.
    template <typename T>
    CommandOption* add_option(const std::string& name, T& value, const std::string& description);
    CommandOption* add_flag(const std::string& name, bool& value, const std::string& description);
    /// Sets what the command does once its arguments are parsed.
    void callback(std::function<void()> run);

    /// The name, after those of the commands that it belongs to.
    [[nodiscard]] std::vector<std::string> path() const;
    /// Once the arguments are parsed: the options given, without positional arguments.
    [[nodiscard]] std::vector<GivenOption> givenOptions() const;

private:
    CommandOption* keep(CLI::Option* option) { return &options_.emplace_back(*option); }

    CLI::App& app_;
    std::list<Command> commands_;
    std::list<CommandOption> options_;
};

} // namespace zu::app
