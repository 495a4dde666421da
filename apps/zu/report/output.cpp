#include "report/output.h"

#include "manners/translation.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iostream>

namespace zu::app {

namespace {

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

bool isWide(char32_t c) {
    return (c >= 0x1100 && c <= 0x115F) || (c >= 0x2E80 && c <= 0xA4CF) || (c >= 0xAC00 && c <= 0xD7A3) ||
           (c >= 0xF900 && c <= 0xFAFF) || (c >= 0xFE30 && c <= 0xFE6F) || (c >= 0xFF00 && c <= 0xFF60) ||
           (c >= 0xFFE0 && c <= 0xFFE6) || (c >= 0x20000 && c <= 0x3FFFD);
}

void printRow(const std::vector<std::string>& cells, const std::vector<std::size_t>& widths) {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        line += cells[i];
        if (i + 1 < cells.size())
            line.append(widths[i] - displayWidth(cells[i]) + 2, ' ');
    }
    std::cout << line << '\n';
}

} // namespace

void printJson(const Json& value) {
    constexpr auto kReplace = Json::error_handler_t::replace;
    if (!value.is_array() || value.empty()) {
        std::cout << value.dump(-1, ' ', false, kReplace) << '\n';
        return;
    }
    std::cout << "[\n";
    for (std::size_t i = 0; i < value.size(); ++i)
        std::cout << value[i].dump(-1, ' ', false, kReplace) << (i + 1 < value.size() ? ",\n" : "\n");
    std::cout << "]\n";
}

TextTable::TextTable(const std::vector<std::string>& headings) {
    for (const std::string& heading : headings)
        headings_.push_back(translated(heading));
}

void TextTable::addRow(std::vector<std::string> cells) {
    cells.resize(headings_.size());
    for (std::string& cell : cells)
        cell = withoutControls(std::move(cell));
    rows_.push_back(std::move(cells));
}

void TextTable::print() const {
    std::vector<std::size_t> widths;
    for (const std::string& heading : headings_)
        widths.push_back(displayWidth(heading));
    for (const auto& row : rows_)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], displayWidth(row[i]));
    printRow(headings_, widths);
    for (const auto& row : rows_)
        printRow(row, widths);
}

std::string withoutControls(std::string text) {
    std::replace_if(text.begin(), text.end(), isControl, '?');
    return text;
}

std::size_t displayWidth(std::string_view utf8) {
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
