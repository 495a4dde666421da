#include "report/csv.h"

#include "command_line.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iostream>

namespace zu::app {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::array<std::string_view, 10> kFormulaStarts{"=",  "+",  "-",  "@",  "\t",
                                                          "\r", "＝", "＋", "－", "＠"};

bool isNumber(std::string_view text) {
    if (text.starts_with('+'))
        text.remove_prefix(1);
    double number = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

bool looksLikeFormula(const std::string& text) {
    return !isNumber(text) &&
           std::any_of(kFormulaStarts.begin(), kFormulaStarts.end(), [&](std::string_view start) {
               return text.starts_with(start) && text.size() > start.size();
           });
}

std::string quoted(const std::string& text) {
    if (text.find_first_of("\",\r\n") == std::string::npos)
        return text;
    std::string field = "\"";
    for (const char c : text)
        field.append(c == '"' ? 2 : 1, c);
    return field + '"';
}

std::string joined(const Json& array) {
    std::string text;
    for (const Json& element : array) {
        if (!text.empty())
            text += element.is_array() ? "; " : " ";
        text += element.is_array()    ? joined(element)
                : element.is_string() ? element.get<std::string>()
                                      : element.dump();
    }
    return text;
}

std::string field(const Json& value) {
    if (value.is_null())
        return {};
    if (value.is_array())
        return quoted(joined(value)); // handles or coordinates, which are no formulas
    return value.is_string() ? csvField(value.get<std::string>()) : value.dump();
}

std::string fieldOf(const Json& row, const std::vector<std::string>& headings, std::size_t column) {
    if (row.is_array())
        return column < row.size() ? field(row[column]) : std::string();
    const auto found = row.find(headings[column]);
    return found == row.end() ? std::string() : field(*found);
}

} // namespace

void addListingForm(Command& command, ListingForm& form, const std::string& jsonHelp) {
    CommandOption* const json = command.add_flag("--json", form.json, jsonHelp);
    command.add_flag("--csv", form.csv, "As CSV for spreadsheets, in UTF-8")->excludes(json);
}

std::string csvField(const std::string& text) {
    return quoted(looksLikeFormula(text) ? '\'' + text : text);
}

void printCsv(const std::vector<std::string>& headings, const Json& rows) {
    constexpr const char* kLineEnd = "\r\n";
    std::cout << kByteOrderMark;
    for (std::size_t column = 0; column < headings.size(); ++column)
        std::cout << (column == 0 ? "" : ",") << csvField(headings[column]);
    std::cout << kLineEnd;
    for (const Json& row : rows) {
        for (std::size_t column = 0; column < headings.size(); ++column)
            std::cout << (column == 0 ? "" : ",") << fieldOf(row, headings, column);
        std::cout << kLineEnd;
    }
}

} // namespace zu::app
