#include "shell/completion.h"

#include "shell/drawing_words.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <iostream>
#include <optional>
#include <string_view>

namespace zu::app {

namespace {

struct Meaning {
    std::string_view name; ///< Of an argument or option.
    DrawingWords words;
};

constexpr std::array kInDrawings{
    Meaning{"HANDLE", DrawingWords::handles},   Meaning{"--handles", DrawingWords::handles},
    Meaning{"KEY", DrawingWords::attributeIds}, Meaning{"--group", DrawingWords::groups},
    Meaning{"--layer", DrawingWords::layers},   Meaning{"--block", DrawingWords::blocks},
};

constexpr std::array<std::string_view, 9> kFiles{"DRAWING",  "FILE",     "A",         "B",         "MODULE",
                                                 "--script", "--output", "--preview", "--settings"};

/// Where the cursor stands.
struct Cursor {
    const CLI::App* command = nullptr;
    const CLI::Option* option = nullptr; ///< Whose value is expected.
    std::size_t arguments = 0;           ///< Before the cursor.
    std::string drawing;                 ///< Named before the cursor.
};

std::vector<const CLI::Option*> argumentsOf(const CLI::App& command) {
    return command.get_options([](const CLI::Option* option) { return option->get_positional(); });
}

bool takesSeveral(const CLI::Option& argument) {
    return argument.get_items_expected_max() > 1;
}

/// The arguments that may stand at a position; one that takes several may be followed by others.
std::vector<const CLI::Option*> argumentsAt(const CLI::App& command, std::size_t position) {
    const std::vector<const CLI::Option*> arguments = argumentsOf(command);
    const bool startsWithList = !arguments.empty() && takesSeveral(*arguments.front());
    if (startsWithList && position > 0 && arguments.size() > 1)
        return {arguments[std::min(position, arguments.size() - 1)], arguments.front()};
    if (position < arguments.size())
        return {arguments[position]};
    const bool repeats = !arguments.empty() && takesSeveral(*arguments.back());
    return repeats ? std::vector{arguments.back()} : std::vector<const CLI::Option*>();
}

const CLI::App* commandNamed(const CLI::App& parent, const std::string& name) {
    for (const CLI::App* command : parent.get_subcommands({}))
        if (command->get_name() == name)
            return command;
    return nullptr;
}

void readArgument(Cursor& cursor, const std::string& word) {
    const std::vector<const CLI::Option*> arguments = argumentsAt(*cursor.command, cursor.arguments++);
    if (!arguments.empty() && arguments.front()->get_name() == "DRAWING")
        cursor.drawing = word;
}

void readOption(Cursor& cursor, const std::string& word) {
    const std::size_t sign = word.find('=');
    const CLI::Option* option = cursor.command->get_option_no_throw(word.substr(0, sign));
    if (option != nullptr && option->get_items_expected_max() > 0 && sign == std::string::npos)
        cursor.option = option;
}

Cursor cursorAfter(const CLI::App& program, std::span<const std::string> words) {
    Cursor cursor{&program, nullptr, 0, {}};
    for (const std::string& word : words) {
        if (cursor.option != nullptr)
            cursor.option = nullptr;
        else if (word.size() > 1 && word.front() == '-')
            readOption(cursor, word);
        else if (const CLI::App* command = commandNamed(*cursor.command, word); command != nullptr)
            cursor.command = command;
        else
            readArgument(cursor, word);
    }
    return cursor;
}

/// The choices of an option are part of its type: "TEXT:{light,dark}".
std::vector<Completion> choicesOf(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    const std::size_t from = type.find('{');
    const std::size_t to = type.find('}', from);
    std::vector<Completion> choices;
    if (from != std::string::npos && to != std::string::npos)
        for (const std::string& choice : CLI::detail::split(type.substr(from + 1, to - from - 1), ','))
            choices.push_back({choice, ""});
    return choices;
}

Completions valuesOf(const CLI::Option& option, const std::string& drawing) {
    const std::string name = option.get_positional() ? option.get_name() : "--" + option.get_lnames().front();
    const auto known = std::find_if(kInDrawings.begin(), kInDrawings.end(),
                                    [&name](const Meaning& meaning) { return meaning.name == name; });
    if (known != kInDrawings.end())
        return {drawing.empty() ? std::vector<Completion>() : drawingWords(drawing, known->words), false};
    return {choicesOf(option), std::find(kFiles.begin(), kFiles.end(), name) != kFiles.end()};
}

std::vector<Completion> optionsOf(const CLI::App& command) {
    std::vector<Completion> words;
    for (const CLI::Option* option : command.get_options())
        for (const std::string& name : option->get_lnames())
            words.push_back({"--" + name, option->get_description()});
    return words;
}

std::vector<Completion> commandsOf(const CLI::App& command) {
    std::vector<Completion> words;
    for (const CLI::App* below : command.get_subcommands({}))
        words.push_back({below->get_name(), below->get_description()});
    return words;
}

Completions allAt(const Cursor& cursor, const std::string& word) {
    if (cursor.option != nullptr)
        return valuesOf(*cursor.option, cursor.drawing);
    if (!word.empty() && word.front() == '-')
        return {optionsOf(*cursor.command), false};
    const std::vector<const CLI::Option*> arguments = argumentsAt(*cursor.command, cursor.arguments);
    if (arguments.empty())
        return {commandsOf(*cursor.command), false};
    Completions all;
    for (const CLI::Option* argument : arguments) {
        Completions values = valuesOf(*argument, cursor.drawing);
        all.words.insert(all.words.end(), values.words.begin(), values.words.end());
        all.files = all.files || values.files;
    }
    return all;
}

} // namespace

Completions complete(const CLI::App& program, std::span<const std::string> words) {
    if (words.empty())
        return {};
    const std::string& word = words.back();
    Completions found = allAt(cursorAfter(program, words.first(words.size() - 1)), word);
    std::erase_if(found.words, [&word](const Completion& each) { return !each.word.starts_with(word); });
    return found;
}

void print(const Completions& completions) {
    for (const Completion& each : completions.words)
        std::cout << each.word << '\t' << each.description << '\n';
    if (completions.files)
        std::cout << ":files\n";
}

} // namespace zu::app
