#include "zuhost/string_table.h"

#include "zuhost/text_codec.h"

#include <algorithm>
#include <charconv>

namespace zuhost {

namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::optional<char> unescaped(char c) {
    switch (c) {
    case 'n':
        return '\n';
    case 't':
        return '\t';
    case '"':
    case '\\':
        return c;
    default:
        return std::nullopt;
    }
}

std::optional<std::string> readQuoted(std::string_view text) {
    if (text.size() < 2 || text.front() != '"' || text.back() != '"')
        return std::nullopt;
    text = text.substr(1, text.size() - 2);
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"')
            return std::nullopt;
        if (text[i] != '\\') {
            result += text[i];
            continue;
        }
        const auto c = i + 1 < text.size() ? unescaped(text[++i]) : std::nullopt;
        if (!c)
            return std::nullopt;
        result += *c;
    }
    return result;
}

std::optional<std::pair<unsigned, std::string>> readEntry(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos)
        return std::nullopt;
    const std::string_view number = trimmed(line.substr(0, equals));
    unsigned id = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), id);
    if (error != std::errc() || end != number.data() + number.size())
        return std::nullopt;
    const auto text = readQuoted(trimmed(line.substr(equals + 1)));
    if (!text)
        return std::nullopt;
    return std::pair{id, *text};
}

std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '\n')
            result += "\\n";
        else if (c == '\t')
            result += "\\t";
        else if (c == '"' || c == '\\')
            (result += '\\') += c;
        else
            result += c;
    }
    return result + '"';
}

} // namespace

StringTable StringTable::parse(std::string_view utf8, std::size_t* firstBadLine) {
    StringTable table;
    if (utf8.starts_with(kMark))
        utf8.remove_prefix(kMark.size());
    std::size_t bad = 0;
    std::size_t number = 0;
    while (!utf8.empty()) {
        ++number;
        const std::size_t end = std::min(utf8.find('\n'), utf8.size());
        const std::string_view line = trimmed(utf8.substr(0, end));
        utf8.remove_prefix(std::min(end + 1, utf8.size()));
        if (line.empty() || line.front() == '#')
            continue;
        if (const auto entry = readEntry(line))
            table.texts_[entry->first] = fromUtf8(entry->second);
        else if (bad == 0)
            bad = number;
    }
    if (firstBadLine != nullptr)
        *firstBadLine = bad;
    return table;
}

const std::wstring* StringTable::find(unsigned id) const {
    const auto found = texts_.find(id);
    return found == texts_.end() ? nullptr : &found->second;
}

std::string StringTable::format() const {
    std::string result;
    for (const auto& [id, text] : texts_)
        result += std::to_string(id) + " = " + quoted(toUtf8(text)) + '\n';
    return result;
}

} // namespace zuhost
