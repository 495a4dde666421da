#pragma once

#include <string>
#include <string_view>

namespace zu::app {

/// Loads the program's texts in the user's language from the language files of the library. The sources hold
/// the texts in English; the English file gives each a number, by which the file of the user's language has
/// it. Without a language in the environment, and for English, texts stay as they are.
void loadTranslations();

/// "ja" or "en": the language that texts are shown in.
[[nodiscard]] std::string languageTag();

/// Returns a text in the user's language, or as it is when that language has none. Texts in the language
/// files may have places for what differs, "{1}" to "{9}": "no attribute {1}" translates "no attribute S401".
/// What stands at a place is translated likewise when it has several words; single ones are names.
[[nodiscard]] std::string translated(std::string_view english);

} // namespace zu::app
