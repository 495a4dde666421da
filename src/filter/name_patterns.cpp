#include "name_patterns.h"
#include "frame/text_view.h"

#include <afxstr.h>

#include <algorithm>

namespace zu {

namespace {

std::wstring folded(std::wstring_view text) {
    return std::wstring(zu::view(zu::textOf(std::wstring(text)).Trim().MakeLower()));
}

bool matches(std::wstring_view pattern, std::wstring_view name) {
    std::size_t p = 0;
    std::size_t n = 0;
    // Only the last star has to be tried again: what an earlier one covers can stay as it is.
    std::size_t afterStar = std::wstring_view::npos;
    std::size_t covered = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == L'*') {
            afterStar = ++p;
            covered = n;
        } else if (p < pattern.size() && (pattern[p] == L'?' || pattern[p] == name[n])) {
            ++p;
            ++n;
        } else if (afterStar != std::wstring_view::npos) {
            p = afterStar;
            n = ++covered;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(L'*', p) == std::wstring_view::npos;
}

} // namespace

NamePatterns::NamePatterns(std::wstring_view list) {
    for (;;) {
        const std::size_t end = list.find(L',');
        if (std::wstring pattern = folded(list.substr(0, end)); !pattern.empty())
            patterns_.push_back(std::move(pattern));
        if (end == std::wstring_view::npos)
            return;
        list.remove_prefix(end + 1);
    }
}

bool NamePatterns::match(std::wstring_view name) const {
    const std::wstring wanted = folded(name);
    return std::any_of(patterns_.begin(), patterns_.end(),
                       [&](const std::wstring& pattern) { return matches(pattern, wanted); });
}

} // namespace zu
