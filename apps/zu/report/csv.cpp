#include "report/csv.h"

#include "command_line.h"
#include "report/json_writer.h"

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
    return std::any_of(kFormulaStarts.begin(), kFormulaStarts.end(),
                       [&](std::string_view start) {
                           return text.starts_with(start) && text.size() > start.size();
                       }) &&
           !isNumber(text);
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

CsvPrinter::CsvPrinter(const std::vector<std::string>& headings) : columns_(headings.size()) {
    std::cout << kByteOrderMark;
    for (const std::string& heading : headings)
        add(heading);
}

void CsvPrinter::add(double value) {
    std::string text;
    appendNumber(text, value);
    addField(text);
}

void CsvPrinter::addField(std::string_view field) {
    line_ += field;
    if (++column_ < columns_) {
        line_ += ',';
        return;
    }
    line_ += "\r\n";
    std::cout.write(line_.data(), static_cast<std::streamsize>(line_.size()));
    line_.clear();
    column_ = 0;
}

void printCsv(const std::vector<std::string>& headings, const Json& rows) {
    CsvPrinter csv(headings);
    for (const Json& row : rows)
        for (std::size_t column = 0; column < headings.size(); ++column)
            csv.addField(fieldOf(row, headings, column));
}

} // namespace zu::app
