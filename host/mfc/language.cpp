#include "zuhost/language.h"

#include <zuhost/platform/environment.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace {

struct Language {
    std::string_view locale; ///< Language, or language and country.
    LANGID id;
};

/// Names with a country come first, so that they are found before their language alone.
constexpr std::array kLanguages{
    Language{"zh_CN", 0x0804}, Language{"zh_HK", 0x0C04}, Language{"zh_SG", 0x1004},
    Language{"zh_TW", 0x0404}, Language{"en_GB", 0x0809}, Language{"en_AU", 0x0C09},
    Language{"en_CA", 0x1009}, Language{"pt_BR", 0x0416}, Language{"de_AT", 0x0C07},
    Language{"de_CH", 0x0807}, Language{"fr_CA", 0x0C0C}, Language{"fr_CH", 0x100C},
    Language{"es_MX", 0x080A}, Language{"ja", 0x0411},    Language{"en", 0x0409},
    Language{"de", 0x0407},    Language{"fr", 0x040C},    Language{"es", 0x0C0A},
    Language{"it", 0x0410},    Language{"pt", 0x0816},    Language{"nl", 0x0413},
    Language{"pl", 0x0415},    Language{"cs", 0x0405},    Language{"hu", 0x040E},
    Language{"ru", 0x0419},    Language{"tr", 0x041F},    Language{"sv", 0x041D},
    Language{"da", 0x0406},    Language{"fi", 0x040B},    Language{"nb", 0x0414},
    Language{"ko", 0x0412},    Language{"zh", 0x0804},    Language{"th", 0x041E},
    Language{"vi", 0x042A},    Language{"id", 0x0421},
};

LANGID languageOf(std::string_view locale) {
    const auto found = std::find_if(kLanguages.begin(), kLanguages.end(), [locale](const Language& language) {
        const std::string_view rest = locale.substr(std::min(language.locale.size(), locale.size()));
        return locale.starts_with(language.locale) &&
               (rest.empty() || rest[0] == '.' || rest[0] == '_' || rest[0] == '@');
    });
    return found != kLanguages.end() ? found->id : LANGID{0};
}

LANGID chosenLanguage = 0;

} // namespace

void zuhost::setUserLanguage(LANGID id) {
    chosenLanguage = id;
}

bool zuhost::environmentNamesLanguage() {
    const std::string locale = platform::userLocale();
    const std::string_view name = std::string_view(locale).substr(0, locale.find_first_of(".@"));
    return !name.empty() && name != "C" && name != "POSIX";
}

LANGID GetUserDefaultUILanguage() {
    return chosenLanguage != 0 ? chosenLanguage : languageOf(zuhost::platform::userLocale());
}

LANGID GetUserDefaultLangID() {
    return GetUserDefaultUILanguage();
}

BOOL GetVersionExW(OSVERSIONINFOW* version) {
    if (version == nullptr)
        return FALSE;
    version->dwMajorVersion = 10;
    version->dwMinorVersion = 0;
    version->dwBuildNumber = 19041;
    version->dwPlatformId = VER_PLATFORM_WIN32_NT;
    version->szCSDVersion[0] = L'\0';
    return TRUE;
}

LONG RegQueryValueW(HKEY /*key*/, const wchar_t* /*subKey*/, wchar_t* /*value*/, LONG* /*size*/) {
    return ERROR_FILE_NOT_FOUND;
}

BOOL EnumResourceLanguagesW(HMODULE /*module*/, const wchar_t* /*type*/, const wchar_t* /*name*/,
                            ENUMRESLANGPROCW /*callback*/, LPARAM /*parameter*/) {
    return FALSE;
}
