#include "command_line.h"

#include "failure.h"
#include "manners/suggestion.h"
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

bool takesValue(const CLI::Option& option) {
    return option.get_items_expected_max() > 0;
}

OptionDescription describe(const CLI::Option& option) {
    const bool isArgument = option.get_positional();
    OptionDescription described;
    if (isArgument)
        described.names.push_back(option.get_name());
    else
        described.names = CLI::detail::split(option.get_name(false, true), ',');
    described.description = option.get_description();
    described.value = takesValue(option) ? option.get_type_name() : "";
    described.preset = option.get_default_str();
    described.isRequired = option.get_required();
    described.repeats = option.get_items_expected_max() > 1;
    return described;
}

CommandDescription describe(const CLI::App& command) {
    CommandDescription described{command.get_name(), command.get_description(), {}, {}, {}};
    for (const CLI::Option* option : command.get_options())
        (option->get_positional() ? described.arguments : described.options).push_back(describe(*option));
    for (const CLI::App* below : command.get_subcommands({}))
        described.commands.push_back(describe(*below));
    return described;
}

/// The command that the words named; the program when they named none.
const CLI::App& commandOf(const CLI::App& program) {
    const CLI::App* command = &program;
    while (!command->get_subcommands().empty())
        command = command->get_subcommands().front();
    return *command;
}

std::string unknownCommand(const CLI::App& program, const std::string& word) {
    std::vector<std::string> names;
    for (const CLI::App* command : program.get_subcommands(nullptr))
        names.push_back(command->get_name());
    return "there is no command " + word + suggestion(word, names) + "; --help lists them";
}

std::string unknownArgument(const CLI::App& program, const CLI::ExtrasError& error) {
    const CLI::App& command = commandOf(program);
    const std::vector<std::string> left = program.remaining(true);
    if (left.empty())
        return error.what();
    std::vector<std::string> names;
    if (left.front().starts_with("-"))
        for (const CLI::Option* option : command.get_options())
            if (!option->get_positional())
                names.push_back(option->get_name());
    return command.get_name() + " takes no argument " + left.front() + suggestion(left.front(), names) +
           "; --help lists them";
}

/// The parts of the help that the parser writes; what it inherits must be set before commands are added.
void translateHelp(CLI::App& program) {
    for (const char* label : {"Usage", "OPTIONS", "SUBCOMMAND", "SUBCOMMANDS", "Positionals", "REQUIRED",
                              "TEXT", "INT", "FLOAT", "Excludes"})
        program.get_formatter()->label(label, translated(label));
    program.option_defaults()->group(translated("Options"));
    program.set_help_flag("-h,--help", translated("Print this help message and exit"));
    program.get_help_ptr()->group(translated("Options"));
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
        const bool takesFolder =
            std::any_of(options_.begin(), options_.end(), [option](const CommandOption& own) {
                return &own.option_ == option && own.takesFolder_;
            });
        given.push_back({option->get_name(),
                         takesValue(*option) ? option->results() : std::vector<std::string>(), takesFolder});
    }
    return given;
}

std::vector<std::string> Command::lastArguments() const {
    std::vector<std::string> values;
    for (const CLI::Option* argument : last_)
        values.insert(values.end(), argument->results().begin(), argument->results().end());
    return values;
}

CommandLine::CommandLine(const std::string& program, const std::string& description,
                         const std::string& version)
    : parser_(std::make_unique<CLI::App>(description, program)), commands_(*parser_) {
    translateHelp(*parser_);
    parser_->allow_windows_style_options(false); // "/samples/x.dxf" is a path on every system
    parser_->require_subcommand(1);
    parser_->set_help_all_flag("--help-all", translated("Help of every command"));
    parser_->set_version_flag("--version", version, translated("Print the version"));
}

CommandLine::~CommandLine() = default;

CommandDescription CommandLine::description() const {
    return describe(*parser_);
}

int CommandLine::run(std::vector<std::string> words) {
    try {
        std::reverse(words.begin(), words.end()); // The parser takes them from the end.
        parser_->parse(words);
        return 0;
    } catch (const CLI::RequiredError& error) {
        const std::vector<std::string> unknown = parser_->remaining();
        if (parser_->get_subcommands().empty() && !unknown.empty())
            throw WrongUsage(unknownCommand(*parser_, unknown.front()));
        parser_->exit(error);
        return WrongUsage::kStatus;
    } catch (const CLI::ExtrasError& error) {
        throw WrongUsage(unknownArgument(*parser_, error));
    } catch (const CLI::ParseError& error) {
        return parser_->exit(error) == 0 ? 0 : WrongUsage::kStatus;
    }
}

std::string CommandLine::drawing() const {
    const CLI::Option* drawing = commandOf(*parser_).get_option_no_throw("DRAWING");
    return drawing != nullptr && drawing->count() > 0 ? drawing->as<std::string>() : "";
}

} // namespace zu::app
