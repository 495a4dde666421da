#pragma once

namespace zu::app {

/// Makes English the user's language where the library has no texts in the one that the environment names.
/// Without a language there the library's own texts, Japanese, are used.
void chooseLanguage();

} // namespace zu::app
