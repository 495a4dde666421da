#include "manners/translation.h"

#include "model/language.h"
#include "text.h"

#include <zucomn/frame.h>
#include <zuhost/language.h>
#include <zuhost/texts.h>

#include <algorithm>
#include <array>
#include <unordered_map>
#include <vector>

namespace zu::app {

namespace {

constexpr unsigned kFirstText = 3100;
constexpr unsigned kLastText = 3699;
constexpr int kDeepest = 4; ///< Of places within places.

/// A text cut at its places "{n}".
struct Pattern {
    std::vector<std::string> literals;
    std::vector<int> places; ///< One fewer than literals.

    explicit Pattern(std::string_view text) : literals(1) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            const bool isPlace = text[i] == '{' && i + 2 < text.size() && text[i + 1] >= '1' &&
                                 text[i + 1] <= '9' && text[i + 2] == '}';
            if (!isPlace) {
                literals.back() += text[i];
                continue;
            }
            places.push_back(text[i + 1] - '0');
            literals.emplace_back();
            i += 2;
        }
    }

    [[nodiscard]] std::size_t literalSize() const {
        std::size_t size = 0;
        for (const std::string& literal : literals)
            size += literal.size();
        return size;
    }
};

struct Translation {
    Pattern english;
    Pattern own;
};

struct Translations {
    std::unordered_map<std::string, std::string> whole;
    std::vector<Translation> patterns; ///< Those with more letters of their own first.
};

Translations& translations() {
    static Translations loaded;
    return loaded;
}

using Captures = std::array<std::string_view, 10>;

bool matches(const Pattern& pattern, std::string_view text, Captures& captures) {
    if (!text.starts_with(pattern.literals.front()))
        return false;
    text.remove_prefix(pattern.literals.front().size());
    for (std::size_t i = 0; i < pattern.places.size(); ++i) {
        const std::string& next = pattern.literals[i + 1];
        const bool isLast = i + 1 == pattern.places.size();
        std::size_t end = text.find(next);
        if (isLast)
            end = text.ends_with(next) ? text.size() - next.size() : std::string_view::npos;
        if (end == std::string_view::npos || end == 0)
            return false;
        captures[static_cast<std::size_t>(pattern.places[i])] = text.substr(0, end);
        text.remove_prefix(end + next.size());
    }
    return text.empty();
}

std::string translate(std::string_view english, int depth) {
    const Translations& known = translations();
    if (const auto whole = known.whole.find(std::string(english)); whole != known.whole.end())
        return whole->second;
    Captures captures;
    for (const Translation& each : known.patterns) {
        if (depth == kDeepest || !matches(each.english, english, captures))
            continue;
        std::string result = each.own.literals.front();
        for (std::size_t i = 0; i < each.own.places.size(); ++i) {
            const std::string_view captured = captures[static_cast<std::size_t>(each.own.places[i])];
            const bool isName = captured.find(' ') == std::string_view::npos;
            result.append(isName ? std::string(captured) : translate(captured, depth + 1))
                .append(each.own.literals[i + 1]);
        }
        return result;
    }
    return std::string(english);
}

std::string textOf(HMODULE module, unsigned id) {
    CString text;
    return ZuComn_LoadString(module, id, text) != 0 ? narrow(zuhost::viewOf(text)) : std::string();
}

} // namespace

void loadTranslations() {
    if (GetUserDefaultUILanguage() == kEnglish)
        return;
    const LanguageModule english(kEnglish);
    if (english.get() == nullptr)
        return;
    Translations& loaded = translations();
    for (unsigned id = kFirstText; id <= kLastText; ++id) {
        const std::string from = textOf(english.get(), id);
        const std::string to = textOf(ZuComn_GetResource(), id);
        if (from.empty() || to.empty())
            continue;
        Translation translation{Pattern(from), Pattern(to)};
        if (translation.english.places.empty())
            loaded.whole.emplace(from, to);
        else
            loaded.patterns.push_back(std::move(translation));
    }
    std::stable_sort(loaded.patterns.begin(), loaded.patterns.end(), [](const auto& a, const auto& b) {
        return a.english.literalSize() > b.english.literalSize();
    });
}

std::string languageTag() {
    return GetUserDefaultUILanguage() == kJapanese ? "ja" : "en";
}

std::string translated(std::string_view english) {
    return translate(english, 0);
}

} // namespace zu::app
