#include "acutads.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace {

using Text = std::wstring_view;

/// Returns the size of the pattern's first element: one that stands for a single character.
std::size_t elementSize(Text pattern) {
    if (pattern.front() == L'`')
        return pattern.size() > 1 ? 2 : 1;
    if (pattern.front() != L'[')
        return 1;
    const std::size_t end = pattern.find(L']', 1);
    return end == Text::npos ? 1 : end + 1; // an open bracket is plain
}

bool isInSet(wchar_t c, Text set) {
    for (std::size_t i = 0; i < set.size(); ++i) {
        if (i + 2 < set.size() && set[i + 1] == L'-') {
            if (c >= set[i] && c <= set[i + 2])
                return true;
            i += 2;
        } else if (set[i] == c) {
            return true;
        }
    }
    return false;
}

bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

/// Beyond ASCII all characters are letters but the blocks of punctuation and symbols, in every locale.
bool isLetter(wchar_t c) {
    if (c < 0x80)
        return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
    constexpr std::array kOthers{
        std::pair{0x80, 0xBF},     std::pair{0xD7, 0xD7},     std::pair{0xF7, 0xF7},
        std::pair{0x2000, 0x2BFF}, std::pair{0x3000, 0x3004}, std::pair{0x3008, 0x3020},
        std::pair{0x3030, 0x3030}, std::pair{0x30FB, 0x30FB}, std::pair{0xFE10, 0xFE6F},
        std::pair{0xFF00, 0xFF20}, std::pair{0xFF3B, 0xFF40}, std::pair{0xFF5B, 0xFF65},
        std::pair{0xFFE0, 0xFFFF}};
    const auto code = static_cast<char32_t>(c);
    return std::none_of(kOthers.begin(), kOthers.end(), [code](const auto& block) {
        return code >= static_cast<char32_t>(block.first) && code <= static_cast<char32_t>(block.second);
    });
}

bool matchesElement(wchar_t c, Text element) {
    if (element.size() > 1 && element.front() == L'`')
        return c == element[1];
    if (element.size() > 1) {
        Text set = element.substr(1, element.size() - 2);
        const bool negated = set.starts_with(L'~');
        set.remove_prefix(negated ? 1 : 0);
        return isInSet(c, set) != negated;
    }
    switch (element.front()) {
    case L'#':
        return isDigit(c);
    case L'@':
        return isLetter(c);
    case L'.':
        return !isDigit(c) && !isLetter(c);
    case L'?':
        return true;
    default:
        return c == element.front();
    }
}

/// Matches with one place to return to, the last "*": an earlier one never has to take more.
bool matchesOne(Text text, Text pattern) {
    Text retryText;
    Text retryPattern;
    bool canRetry = false;
    while (!text.empty() || !pattern.empty()) {
        if (pattern.starts_with(L'*')) {
            pattern.remove_prefix(1);
            retryText = text;
            retryPattern = pattern;
            canRetry = true;
            continue;
        }
        const std::size_t size = pattern.empty() ? 0 : elementSize(pattern);
        if (size > 0 && !text.empty() && matchesElement(text.front(), pattern.substr(0, size))) {
            text.remove_prefix(1);
            pattern.remove_prefix(size);
            continue;
        }
        if (!canRetry || retryText.empty())
            return false;
        retryText.remove_prefix(1);
        text = retryText;
        pattern = retryPattern;
    }
    return true;
}

bool matchesAlternative(Text text, Text pattern) {
    const bool negated = pattern.starts_with(L'~');
    pattern.remove_prefix(negated ? 1 : 0);
    return matchesOne(text, pattern) != negated;
}

/// Returns the pattern up to its first comma outside of brackets.
Text firstAlternative(Text patterns) {
    std::size_t end = 0;
    while (end < patterns.size() && patterns[end] != L',')
        end += elementSize(patterns.substr(end));
    return patterns.substr(0, end);
}

bool matches(Text text, Text patterns) {
    for (;;) {
        const Text pattern = firstAlternative(patterns);
        if (matchesAlternative(text, pattern))
            return true;
        if (pattern.size() == patterns.size())
            return false;
        patterns.remove_prefix(pattern.size() + 1);
    }
}

} // namespace

int acutWcMatch(const ACHAR* text, const ACHAR* pattern) {
    return text != nullptr && pattern != nullptr && matches(text, pattern) ? RTNORM : RTERROR;
}
