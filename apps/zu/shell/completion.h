#pragma once

#include "command_line.h"

#include <span>
#include <string>
#include <vector>

namespace zu::app {

/// A word that can stand at the cursor of a command line.
struct Completion {
    std::string word;
    std::string description;
};

/// What can stand at the cursor.
struct Completions {
    std::vector<Completion> words;
    bool files = false; ///< A file or folder can stand there too.
};

/// Completes the last of the words after the program's name: commands, options and their choices, and by the
/// drawing that is named before it handles, attribute ids, groups, layers and blocks. Nothing can stand where
/// the drawing cannot be read.
[[nodiscard]] Completions complete(const CommandDescription& program, std::span<const std::string> words);

/// Prints a word and its description, separated by a tab, on each line, and ":files" on a last one.
void print(const Completions& completions);

} // namespace zu::app
