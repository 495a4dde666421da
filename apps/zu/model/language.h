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

/// Makes English the user's language where the environment names none, or one that the library has no texts
/// in.
void chooseLanguage();

/// Returns a text of the library's language files in the user's language.
[[nodiscard]] std::wstring programText(unsigned id);

} // namespace zu::app
