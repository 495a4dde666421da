#include "keywords.h"

#include <zuhost/folded_name.h>

#include <algorithm>
#include <cwctype>

namespace zuhost {

namespace {

bool isCapital(wchar_t c) {
    const auto character = static_cast<std::wint_t>(static_cast<char32_t>(c));
    return std::iswupper(character) != 0 || std::iswdigit(character) != 0 || c == L'-';
}

std::vector<std::wstring_view> words(std::wstring_view list) {
    std::vector<std::wstring_view> found;
    while (true) {
        list.remove_prefix(std::min(list.find_first_not_of(L" \t\n"), list.size()));
        if (list.empty())
            return found;
        found.push_back(list.substr(0, list.find_first_of(L" \t\n")));
        list.remove_prefix(found.back().size());
    }
}

} // namespace

Keywords::Keyword Keywords::parse(std::wstring_view word) {
    const std::size_t comma = word.find(L',');
    Keyword keyword;
    keyword.name = word.substr(0, comma);
    keyword.result = keyword.name;
    if (comma != std::wstring_view::npos) {
        keyword.shortest = std::min(std::max<std::size_t>(word.size() - comma - 1, 1), keyword.name.size());
        return keyword;
    }
    const auto first = std::find_if(keyword.name.begin(), keyword.name.end(), isCapital);
    const auto last = std::find_if_not(first, keyword.name.end(), isCapital);
    if (first == keyword.name.end()) {
        keyword.shortest = keyword.name.size(); // without capitals there is no abbreviation
        return keyword;
    }
    keyword.first = static_cast<std::size_t>(first - keyword.name.begin());
    keyword.shortest = static_cast<std::size_t>(last - keyword.name.begin());
    return keyword;
}

Keywords::Keywords(std::wstring_view list) {
    const std::vector<std::wstring_view> all = words(list);
    const auto global =
        std::find_if(all.begin(), all.end(), [](auto word) { return word.starts_with(L'_'); });
    for (auto word = all.begin(); word != global; ++word)
        keywords_.push_back(parse(*word));
    const std::size_t locals = keywords_.size();
    for (auto word = global; word != all.end(); ++word) {
        Keyword keyword = parse(word->substr(word->starts_with(L'_') ? 1 : 0));
        keyword.isGlobal = true;
        const auto position = static_cast<std::size_t>(word - global);
        if (position < locals)
            keywords_[position].result = keyword.result;
        keywords_.push_back(std::move(keyword));
    }
}

bool Keywords::matches(const Keyword& keyword, std::wstring_view word) {
    const std::wstring name = foldedName(keyword.name);
    if (word.size() >= keyword.shortest && std::wstring_view(name).starts_with(word))
        return true;
    return word.size() >= keyword.shortest - keyword.first &&
           std::wstring_view(name).substr(keyword.first).starts_with(word);
}

std::optional<std::wstring> Keywords::find(std::wstring_view word) const {
    const bool global = word.starts_with(L'_');
    const std::wstring wanted = foldedName(word.substr(global ? 1 : 0));
    if (wanted.empty())
        return std::nullopt;
    const bool hasGlobals =
        std::any_of(keywords_.begin(), keywords_.end(), [](const Keyword& k) { return k.isGlobal; });
    for (const Keyword& keyword : keywords_)
        if ((!hasGlobals || keyword.isGlobal == global) && matches(keyword, wanted))
            return keyword.result;
    return std::nullopt;
}

} // namespace zuhost
