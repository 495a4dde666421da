#include "shell/completion.h"

#include "shell/drawing_words.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <sstream>
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
    const CommandDescription* command = nullptr;
    const OptionDescription* option = nullptr; ///< Whose value is expected.
    std::size_t arguments = 0;                 ///< Before the cursor.
    std::string drawing;                       ///< Named before the cursor.
};

/// The arguments that may stand at a position; one that takes several may be followed by others.
std::vector<const OptionDescription*> argumentsAt(const CommandDescription& command, std::size_t position) {
    const std::vector<OptionDescription>& arguments = command.arguments;
    const bool startsWithList = !arguments.empty() && arguments.front().repeats;
    if (startsWithList && position > 0 && arguments.size() > 1)
        return {&arguments[std::min(position, arguments.size() - 1)], &arguments.front()};
    if (position < arguments.size())
        return {&arguments[position]};
    if (arguments.empty() || !arguments.back().repeats)
        return {};
    return {&arguments.back()};
}

const CommandDescription* commandNamed(const CommandDescription& parent, const std::string& name) {
    const auto found = std::ranges::find(parent.commands, name, &CommandDescription::name);
    return found != parent.commands.end() ? &*found : nullptr;
}

const OptionDescription* optionNamed(const CommandDescription& command, const std::string& name) {
    const auto found = std::ranges::find_if(command.options, [&name](const OptionDescription& option) {
        return std::ranges::find(option.names, name) != option.names.end();
    });
    return found != command.options.end() ? &*found : nullptr;
}

void readArgument(Cursor& cursor, const std::string& word) {
    const auto arguments = argumentsAt(*cursor.command, cursor.arguments++);
    if (!arguments.empty() && arguments.front()->names.front() == "DRAWING")
        cursor.drawing = word;
}

void readOption(Cursor& cursor, const std::string& word) {
    const OptionDescription* const option = optionNamed(*cursor.command, word);
    if (option != nullptr && !option->value.empty())
        cursor.option = option;
}

Cursor cursorAfter(const CommandDescription& program, std::span<const std::string> words) {
    Cursor cursor{&program, nullptr, 0, {}};
    for (const std::string& word : words) {
        if (cursor.option != nullptr)
            cursor.option = nullptr;
        else if (word.size() > 1 && word.front() == '-')
            readOption(cursor, word);
        else if (const CommandDescription* command = commandNamed(*cursor.command, word))
            cursor.command = command;
        else
            readArgument(cursor, word);
    }
    return cursor;
}

/// The choices of an option are part of its type: "TEXT:{light,dark}".
std::vector<Completion> choicesOf(const OptionDescription& option) {
    const std::size_t from = option.value.find('{');
    const std::size_t to = option.value.find('}', from);
    std::vector<Completion> choices;
    if (from == std::string::npos || to == std::string::npos)
        return choices;
    std::istringstream list(option.value.substr(from + 1, to - from - 1));
    for (std::string choice; std::getline(list, choice, ',');)
        choices.push_back({choice, ""});
    return choices;
}

/// An option means what its long name says, the last one.
Completions valuesOf(const OptionDescription& option, const std::string& drawing) {
    const std::string& name = option.names.back();
    const auto known = std::ranges::find(kInDrawings, name, &Meaning::name);
    if (known != kInDrawings.end())
        return {drawing.empty() ? std::vector<Completion>() : drawingWords(drawing, known->words), false};
    return {choicesOf(option), std::ranges::find(kFiles, name) != kFiles.end()};
}

std::vector<Completion> optionsOf(const CommandDescription& command) {
    std::vector<Completion> words;
    for (const OptionDescription& option : command.options)
        for (const std::string& name : option.names)
            if (name.starts_with("--"))
                words.push_back({name, option.description});
    return words;
}

std::vector<Completion> commandsOf(const CommandDescription& command) {
    std::vector<Completion> words;
    for (const CommandDescription& below : command.commands)
        words.push_back({below.name, below.description});
    return words;
}

Completions allAt(const Cursor& cursor, const std::string& word) {
    if (cursor.option != nullptr)
        return valuesOf(*cursor.option, cursor.drawing);
    if (!word.empty() && word.front() == '-')
        return {optionsOf(*cursor.command), false};
    const auto arguments = argumentsAt(*cursor.command, cursor.arguments);
    if (arguments.empty())
        return {commandsOf(*cursor.command), false};
    Completions all;
    for (const OptionDescription* argument : arguments) {
        Completions values = valuesOf(*argument, cursor.drawing);
        all.words.insert(all.words.end(), values.words.begin(), values.words.end());
        all.files = all.files || values.files;
    }
    return all;
}

} // namespace

Completions complete(const CommandDescription& program, std::span<const std::string> words) {
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
