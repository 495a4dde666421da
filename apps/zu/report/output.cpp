#include "report/output.h"

#include "manners/translation.h"
#include "report/json_writer.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iostream>

namespace zu::app {

namespace {

constexpr std::size_t kGap = 2; ///< Columns between cells.

struct CodePoint {
    char32_t value;
    std::size_t bytes;
};

CodePoint firstCodePoint(std::string_view utf8) {
    const auto lead = static_cast<unsigned char>(utf8[0]);
    const std::size_t bytes = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (bytes == 1 || bytes > utf8.size())
        return {lead, 1};
    char32_t value = lead & (0xFFU >> (bytes + 1));
    for (std::size_t i = 1; i < bytes; ++i)
        value = (value << 6U) | (static_cast<unsigned char>(utf8[i]) & 0x3FU);
    return {value, bytes};
}

/// Control characters in a name could act as terminal escapes.
bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

/// True for texts whose characters are one byte and one column each, none of them a control character.
bool isPlain(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
}

bool isWide(char32_t c) {
    return (c >= 0x1100 && c <= 0x115F) || (c >= 0x2E80 && c <= 0xA4CF) || (c >= 0xAC00 && c <= 0xD7A3) ||
           (c >= 0xF900 && c <= 0xFAFF) || (c >= 0xFE30 && c <= 0xFE6F) || (c >= 0xFF00 && c <= 0xFF60) ||
           (c >= 0xFFE0 && c <= 0xFFE6) || (c >= 0x20000 && c <= 0x3FFFD);
}

bool isAscii(std::string_view text) {
    return std::none_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) > 0x7F; });
}

} // namespace

std::string jsonText(const Json& value) {
    return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void printJson(const Json& value) {
    if (!value.is_array()) {
        std::cout << jsonText(value) << '\n';
        return;
    }
    JsonArrayPrinter array;
    for (const Json& element : value)
        array.print(jsonText(element));
    array.finish();
}

TextTable::TextTable(const std::vector<std::string>& headings) : columns_(headings.size()) {
    for (const std::string& heading : headings)
        addCell(translated(heading));
}

std::size_t TextTable::Column::find(std::string_view text) const {
    const bool isVaried = known.size() == kMostKnown && repeats < kMostKnown;
    return isVaried ? kMostKnown
                    : static_cast<std::size_t>(std::find(known.begin(), known.end(), text) - known.begin());
}

void TextTable::addCell(std::string_view text) {
    if (next_ == 0 && (parts_.empty() || parts_.back().size() >= kPart))
        parts_.emplace_back().reserve(kPart + kPart / 16);
    Column& column = columns_[next_];
    std::string& part = parts_.back();
    if (const std::size_t place = column.find(text); place < column.known.size()) {
        part += static_cast<char>(kFirstKnown + static_cast<char>(place));
        ++column.repeats;
    } else {
        addNewText(column, part, text);
    }
    if (++next_ < columns_.size())
        return;
    next_ = 0;
    ++lines_;
}

void TextTable::addNewText(Column& column, std::string& part, std::string_view text) {
    const std::size_t start = part.size();
    part += text;
    if (isPlain(text)) {
        column.width = std::max(column.width, text.size());
    } else {
        std::replace_if(part.begin() + static_cast<std::ptrdiff_t>(start), part.end(), isControl, '?');
        column.width = std::max(column.width, displayWidth(std::string_view(part).substr(start)));
        column.isPlain = false;
    }
    if (column.known.size() < kMostKnown)
        column.known.push_back(part.substr(start));
    part += kCellEnd;
}

void TextTable::addRow(const std::vector<std::string>& cells) {
    for (std::size_t i = 0; i < columns_.size(); ++i)
        addCell(i < cells.size() ? std::string_view(cells[i]) : std::string_view());
}

void TextTable::print() const {
    std::string lines;
    std::size_t printed = 0;
    for (std::string_view rest : parts_) {
        for (; printed < lines_ && !rest.empty(); ++printed)
            appendLine(lines, rest);
        std::cout.write(lines.data(), static_cast<std::streamsize>(lines.size()));
        lines.clear();
    }
}

/// Removes the cells of the line from `rest`.
void TextTable::appendLine(std::string& lines, std::string_view& rest) const {
    for (const Column& column : columns_) {
        const auto place = static_cast<std::size_t>(static_cast<unsigned char>(rest.front() - kFirstKnown));
        const bool isKnown = place < column.known.size();
        const std::string_view text = isKnown ? column.known[place] : rest.substr(0, rest.find(kCellEnd));
        rest.remove_prefix(isKnown ? 1 : text.size() + 1);
        lines += text;
        if (&column != &columns_.back())
            lines.append(column.width - (column.isPlain ? text.size() : displayWidth(text)) + kGap, ' ');
    }
    lines += '\n';
}

std::string withoutControls(std::string text) {
    std::replace_if(text.begin(), text.end(), isControl, '?');
    return text;
}

std::size_t displayWidth(std::string_view utf8) {
    if (isAscii(utf8))
        return utf8.size();
    std::size_t places = 0;
    while (!utf8.empty()) {
        const CodePoint c = firstCodePoint(utf8);
        const bool halfWidthMark = c.value >= 0xFF61 && c.value <= 0xFF9F;
        places += isWide(c.value) && !halfWidthMark ? 2 : 1;
        utf8.remove_prefix(c.bytes);
    }
    return places;
}

std::string shortNumber(double value) {
    char buffer[64];
    const double rounded = std::abs(value) < 1e12 ? std::round(value * 1000.0) / 1000.0 : value;
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, rounded == 0.0 ? 0.0 : rounded).ptr;
    return {buffer, end};
}

} // namespace zu::app
