#pragma once

#include <functional>
#include <list>
#include <memory>
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

/// What the help says of an option or argument.
struct OptionDescription {
    std::vector<std::string> names; ///< As they are given, such as "-o" and "--output"; an argument has one.
    std::string description;
    std::string value; ///< The type of the value; empty for a flag.
    std::string preset;
    bool isRequired = false;
    bool repeats = false; ///< Takes several values.
};

/// What the help says of a command and of those below it.
struct CommandDescription {
    std::string name;
    std::string description;
    std::vector<OptionDescription> arguments;
    std::vector<OptionDescription> options;
    std::vector<CommandDescription> commands;
};

/// A command with its options, under the names of the command-line parser that does the work. Only the source
/// of this class and of CommandLine includes the parser, whose headers take long to compile. Options and
/// subcommands live as long as their command; a variable given for a value must live until parsing ends.
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

/// The command line of the program.
class CommandLine {
public:
    CommandLine(const std::string& program, const std::string& description, const std::string& version);
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    /// Commands are added to it.
    [[nodiscard]] Command& commands() { return commands_; }
    [[nodiscard]] CommandDescription description() const;

    /// Parses the words after the program's name and runs the command that they name. Returns the program's
    /// status; prints help, the version and what the parser finds wrong itself. Throws WrongUsage, and what
    /// the command throws.
    int run(std::vector<std::string> words);
    /// Returns the drawing that the words named; empty when they named none.
    [[nodiscard]] std::string drawing() const;

private:
    std::unique_ptr<CLI::App> parser_;
    Command commands_;
};

} // namespace zu::app
