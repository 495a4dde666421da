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
    /// Marks an output that may also be a folder, which then gets a file for each drawing.
    CommandOption* file_or_folder();

private:
    friend class Command;

    CLI::Option& option_;
    bool takesFolder_ = false;
};

/// An argument that follows a list of arguments.
struct LastArgument {
    std::string name;
    std::string& value;
    std::string description;
};

/// The arguments that follow a list of arguments, as KEY and VALUE in "DRAWING.. KEY VALUE".
struct LastArguments {
    std::vector<LastArgument> arguments;
    /// Whether the last of several words is the value of the argument, which is then optional; without it
    /// every argument is required.
    bool (*accepts)(const std::string& word) = nullptr;
};

/// An option as a call gave it.
struct GivenOption {
    std::string name;                ///< Its long name, such as "--json".
    std::vector<std::string> values; ///< None for a flag.
    bool takesFolder = false;        ///< See CommandOption::file_or_folder.
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
    /// Adds a required list of arguments, and those that get the last words of it.
    void add_list(const std::string& name, std::vector<std::string>& values, const std::string& description,
                  const LastArguments& last);
    CommandOption* add_flag(const std::string& name, bool& value, const std::string& description);
    /// Sets what the command does once its arguments are parsed.
    void callback(std::function<void()> run);
    /// Takes every option and argument; for commands that fail whatever they are given.
    void takeAnything();

    /// The name, after those of the commands that it belongs to.
    [[nodiscard]] std::vector<std::string> path() const;
    /// Once the arguments are parsed: the options given, without positional arguments.
    [[nodiscard]] std::vector<GivenOption> givenOptions() const;
    /// Once the arguments are parsed: the values given for the arguments that follow the list.
    [[nodiscard]] std::vector<std::string> lastArguments() const;

private:
    CommandOption* keep(CLI::Option* option) { return &options_.emplace_back(*option); }

    CLI::App& app_;
    std::list<Command> commands_;
    std::list<CommandOption> options_;
    std::vector<CLI::Option*> last_; ///< The arguments that follow the list.
};

} // namespace zu::app
