#pragma once

#include "report/output.h"

#include <string>
#include <vector>

namespace zu::app {

class Command;

/// How a listing is printed: as JSON, as CSV, or as text for reading.
struct ListingForm {
    bool json = false;
    bool csv = false;
};

/// Adds --json and --csv, which exclude each other.
void addListingForm(Command& command, ListingForm& form, const std::string& jsonHelp = "As JSON");

/// Returns a text as a field of CSV, quoted where necessary. An apostrophe goes before a text that a
/// spreadsheet would take for a formula (=, +, -, @, their full-width forms, or a control character at its
/// start, unless it is a number or a single character): drawings come from others.
[[nodiscard]] std::string csvField(const std::string& text);

/// Prints the rows of a table as CSV one by one; see printCsv.
class CsvPrinter {
public:
    explicit CsvPrinter(const std::vector<std::string>& headings);

    void add(const std::string& text) { addField(csvField(text)); }
    void add(int value) { addField(std::to_string(value)); }
    void add(bool value) { addField(value ? "true" : "false"); }
    void add(double value);
    /// Adds handles, numbers or points as they are.
    void addField(std::string_view field);

private:
    std::string line_;
    std::size_t columns_;
    std::size_t column_ = 0;
};

/// Prints a table as CSV: UTF-8 with a byte-order mark, by which spreadsheets recognise Japanese; one heading
/// line; lines end in CR LF. A row is an object, of which the headings name the fields, or an array of its
/// fields. An array of handles or coordinates in a field is written with blanks between its elements, an
/// array of arrays with "; ".
void printCsv(const std::vector<std::string>& headings, const Json& rows);

} // namespace zu::app
