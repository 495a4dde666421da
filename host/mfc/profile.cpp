#include "zuhost/profile.h"

#include "zuhost/character.h"

#include <algorithm>

namespace zuhost {

namespace {

/// White space of profile files; includes Ctrl-Z, the old end mark of text files.
constexpr bool isBlank(wchar_t c) {
    return c == L' ' || (c >= 0x09 && c <= 0x0D) || c == 0x1A;
}

template <typename Blank>
std::wstring_view trimmed(std::wstring_view text, Blank blank) {
    while (!text.empty() && blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && blank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::wstring_view trimmed(std::wstring_view text) {
    return trimmed(text, isBlank);
}

/// Trims a name passed by a caller, which loses spaces only.
std::wstring_view trimmedName(std::wstring_view name) {
    return trimmed(name, [](wchar_t c) { return c == L' '; });
}

/// Returns the text before its first NUL.
std::wstring_view untilNul(std::wstring_view text) {
    return text.substr(0, text.find(L'\0'));
}

bool sameName(std::wstring_view a, std::wstring_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](wchar_t x, wchar_t y) { return toLower(x) == toLower(y); });
}

/// Returns the length of the first line, including its end: LF, CR LF or CR.
std::size_t lineLength(std::string_view bytes, std::size_t unit) {
    const auto at = [&](std::size_t i, char c) {
        return i + unit <= bytes.size() && bytes[i] == c && (unit == 1 || bytes[i + 1] == '\0');
    };
    for (std::size_t i = 0; i < bytes.size(); i += unit) {
        if (at(i, '\n'))
            return i + unit;
        if (at(i, '\r'))
            return at(i + unit, '\n') ? i + 2 * unit : i + unit;
    }
    return bytes.size();
}

} // namespace

Profile::Profile(std::string_view bytes) : encoding_(TextEncoding::of(bytes)) {
    marked_ = !encoding_.mark().empty();
    bytes.remove_prefix(encoding_.mark().size());
    const std::size_t unit = encoding_.kind == TextEncoding::Kind::utf16LittleEndian ? 2 : 1;
    while (!bytes.empty()) {
        const std::size_t length = std::min(lineLength(bytes, unit), bytes.size());
        lines_.push_back(parsed(std::string(bytes.substr(0, length))));
        bytes.remove_prefix(length);
    }
}

Profile::Line Profile::parsed(std::string bytes) const {
    Line line;
    const std::wstring decoded = encoding_.decode(bytes);
    line.bytes = std::move(bytes);
    const std::wstring_view text = trimmed(decoded);
    const std::size_t equals = text.find(L'=');
    if (text.starts_with(L'[')) {
        line.kind = Line::Kind::section;
        line.name = trimmed(untilNul(text.substr(1, std::min(text.find(L']'), text.size()) - 1)));
    } else if (!text.starts_with(L';') && !text.empty()) {
        line.kind = equals != std::wstring_view::npos ? Line::Kind::key : Line::Kind::bareKey;
        line.name = trimmed(untilNul(text.substr(0, equals)));
        if (line.kind == Line::Kind::key)
            line.value = untilNul(trimmed(text.substr(equals + 1)));
    }
    return line;
}

std::optional<Profile::Range> Profile::find(std::wstring_view section) const {
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        if (lines_[i].kind != Line::Kind::section || !sameName(lines_[i].name, trimmedName(section)))
            continue;
        std::size_t end = i + 1;
        while (end < lines_.size() && lines_[end].kind != Line::Kind::section)
            ++end;
        return Range{i, end};
    }
    return std::nullopt;
}

std::optional<std::size_t> Profile::findKey(Range range, std::wstring_view key) const {
    for (std::size_t i = range.heading + 1; i < range.end; ++i)
        if (isKey(lines_[i].kind) && sameName(lines_[i].name, trimmedName(key)))
            return i;
    return std::nullopt;
}

std::optional<std::wstring> Profile::value(std::wstring_view section, std::wstring_view key) const {
    const auto range = find(section);
    const auto found = range ? findKey(*range, key) : std::nullopt;
    const bool hasValue = found && lines_[*found].kind == Line::Kind::key;
    return hasValue ? std::optional(lines_[*found].value) : std::nullopt;
}

std::vector<std::wstring> Profile::sections() const {
    std::vector<std::wstring> names;
    for (const Line& line : lines_)
        if (line.kind == Line::Kind::section)
            names.push_back(line.name);
    return names;
}

std::vector<std::wstring> Profile::keys(std::wstring_view section) const {
    std::vector<std::wstring> names;
    if (const auto range = find(section))
        for (std::size_t i = range->heading + 1; i < range->end; ++i)
            if (lines_[i].kind == Line::Kind::key)
                names.push_back(lines_[i].name);
    return names;
}

std::optional<Profile::Line> Profile::newLine(const std::wstring& text) const {
    auto bytes = encoding_.encode(text + L"\r\n");
    return bytes ? std::optional(parsed(std::move(*bytes))) : std::nullopt;
}

void Profile::completeLastLine() {
    const std::string ending = encoding_.encode(L"\r\n").value_or("\r\n");
    // Half a UTF-16 unit at the end of the file would misalign everything appended after it.
    if (!lines_.empty() && encoding_.kind == TextEncoding::Kind::utf16LittleEndian &&
        lines_.back().bytes.size() % 2 != 0)
        lines_.back().bytes.pop_back();
    const auto ends = [this](wchar_t c) {
        return lines_.back().bytes.ends_with(encoding_.encode(std::wstring(1, c)).value_or(""));
    };
    if (!lines_.empty() && !ends(L'\n') && !ends(L'\r'))
        lines_.back().bytes += ending;
    else if (lines_.empty() && marked_)
        lines_.push_back(parsed(ending));
}

void Profile::insertKey(Range range, Line line) {
    std::size_t place = range.heading + 1;
    for (std::size_t i = place; i < range.end; ++i)
        if (isKey(lines_[i].kind))
            place = i + 1;
    if (place == lines_.size())
        completeLastLine();
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place), std::move(line));
}

bool Profile::set(std::wstring_view section, std::wstring_view key, std::wstring_view value) {
    const auto range = find(section);
    const std::size_t found = range ? findKey(*range, key).value_or(lines_.size()) : lines_.size();
    const bool known = found < lines_.size();
    const std::wstring name = known ? lines_[found].name : std::wstring(trimmedName(key));
    auto line = newLine(name + L'=' + std::wstring(value));
    if (!line)
        return false;
    if (known) {
        lines_[found] = std::move(*line);
        return true;
    }
    if (range) {
        insertKey(*range, std::move(*line));
        return true;
    }
    auto heading = newLine(L'[' + std::wstring(trimmedName(section)) + L']');
    if (!heading)
        return false;
    completeLastLine();
    lines_.push_back(std::move(*heading));
    lines_.push_back(std::move(*line));
    return true;
}

void Profile::remove(std::wstring_view section, std::wstring_view key) {
    const auto range = find(section);
    if (const auto found = range ? findKey(*range, key) : std::nullopt)
        lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(*found));
}

void Profile::removeSection(std::wstring_view section) {
    const auto range = find(section);
    if (!range)
        return;
    const auto first = lines_.begin() + static_cast<std::ptrdiff_t>(range->heading);
    const auto last = lines_.begin() + static_cast<std::ptrdiff_t>(range->end);
    lines_.erase(std::remove_if(first, last, [](const Line& line) { return line.kind != Line::Kind::other; }),
                 last);
}

std::string Profile::bytes() const {
    std::string all(encoding_.mark());
    for (const Line& line : lines_)
        all += line.bytes;
    return all;
}

} // namespace zuhost
