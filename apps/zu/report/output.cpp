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

TextTable::TextTable(const std::vector<std::string>& headings) : widths_(headings.size()) {
    for (const std::string& heading : headings)
        addCell(translated(heading));
}

void TextTable::addCell(std::string_view text) {
    std::size_t& width = widths_[cells_++ % widths_.size()];
    const std::size_t start = text_.size();
    text_ += text;
    std::replace_if(text_.begin() + static_cast<std::ptrdiff_t>(start), text_.end(), isControl, '?');
    width = std::max(width, displayWidth(std::string_view(text_).substr(start)));
    text_ += kCellEnd;
}

void TextTable::addRow(const std::vector<std::string>& cells) {
    for (std::size_t i = 0; i < widths_.size(); ++i)
        addCell(i < cells.size() ? std::string_view(cells[i]) : std::string_view());
}

void TextTable::print() const {
    std::string line;
    std::string_view rest = text_;
    for (std::size_t cell = 0; cell < cells_; ++cell) {
        const std::string_view text = rest.substr(0, rest.find(kCellEnd));
        rest.remove_prefix(text.size() + 1);
        line += text;
        const std::size_t column = cell % widths_.size();
        if (column + 1 < widths_.size()) {
            line.append(widths_[column] - displayWidth(text) + kGap, ' ');
            continue;
        }
        line += '\n';
        std::cout.write(line.data(), static_cast<std::streamsize>(line.size()));
        line.clear();
    }
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
