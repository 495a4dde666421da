#pragma once

#include <windows.h>

#include <string>

namespace zu::app {

constexpr LANGID kEnglish = 0x0409;
constexpr LANGID kJapanese = 0x0411;

/// The texts of a language, for the lifetime of the object.
class LanguageModule {
public:
    explicit LanguageModule(LANGID id);
    ~LanguageModule();
    LanguageModule(const LanguageModule&) = delete;
    LanguageModule& operator=(const LanguageModule&) = delete;

    /// Null when the library has no texts in the language.
    [[nodiscard]] HMODULE get() const { return module_; }

private:
    HMODULE module_ = nullptr;
};

/// Makes English the user's language where the library has no texts in the one that the environment names.
/// Without a language there the library's own texts, Japanese, are used.
void chooseLanguage();

/// Returns a text of the library's language files in the user's language; in English where the environment
/// names no language, as all messages of the program are.
[[nodiscard]] std::wstring programText(unsigned id);

} // namespace zu::app
