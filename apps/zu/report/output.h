#pragma once

#include <nlohmann/json.hpp>

#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace zu::app {

using Json = nlohmann::ordered_json;

/// Returns a value on one line.
[[nodiscard]] std::string jsonText(const Json& value);

/// Prints a JSON array with one element a line, anything else on one line.
void printJson(const Json& value);

/// A table for a terminal: columns as wide as their widest text; wide characters take two columns.
class TextTable {
public:
    /// The headings are shown in the user's language.
    explicit TextTable(const std::vector<std::string>& headings);

    /// Missing cells are empty.
    void addRow(const std::vector<std::string>& cells);
    /// Adds the next cell of a row; faster for long tables.
    void addCell(std::string_view text);
    [[nodiscard]] bool empty() const { return size() == 0; }
    [[nodiscard]] std::size_t size() const { return lines_ - 1; }
    void print() const;

private:
    struct Column {
        /// Returns the place of the text among the known ones; one beyond them for any other text.
        [[nodiscard]] std::size_t find(std::string_view text) const;

        std::size_t width = 0;
        std::vector<std::string> known; ///< Its first texts; cells that repeat them are one character.
        std::size_t repeats = 0;        ///< Number of these cells.
        bool isPlain = true;            ///< The width of each text is its size.
    };
    // Cells have no control characters.
    static constexpr char kCellEnd = '\n';
    static constexpr char kFirstKnown = '\x10'; ///< For the first of the known texts.
    static constexpr std::size_t kMostKnown = 16;
    static constexpr std::size_t kPart = 1U << 16U;

    static void addNewText(Column& column, std::string& part, std::string_view text);
    void appendLine(std::string& lines, std::string_view& rest) const;

    std::vector<Column> columns_;
    std::deque<std::string> parts_; ///< The cells of some lines each, those of the heading first.
    std::size_t lines_ = 0;         ///< Complete ones, the heading included.
    std::size_t next_ = 0;          ///< The column of the next cell.
};

/// Replaces control characters, which could act as terminal escapes.
[[nodiscard]] std::string withoutControls(std::string text);

/// Returns the columns that a UTF-8 text takes on a terminal.
[[nodiscard]] std::size_t displayWidth(std::string_view utf8);

/// A length in drawing units, rounded to 0.001, in the shortest form: "4200", "1300.5".
[[nodiscard]] std::string shortNumber(double value);

} // namespace zu::app
