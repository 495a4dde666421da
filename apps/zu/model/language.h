#pragma once

#include <string>

namespace zu::app {

/// Makes English the user's language where the library has no texts in the one that the environment names.
/// Without a language there the library's own texts, Japanese, are used.
void chooseLanguage();

/// Returns a text of the library's language files in the user's language; in English where the environment
/// names no language, as all messages of the program are.
[[nodiscard]] std::wstring programText(unsigned id);

} // namespace zu::app
