#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace zu::app {

using Json = nlohmann::ordered_json;

/// Prints a JSON array with one element a line, anything else on one line.
void printJson(const Json& value);

/// A table for a terminal: columns as wide as their widest text; wide characters take two columns.
class TextTable {
public:
    /// The headings are shown in the user's language.
    explicit TextTable(const std::vector<std::string>& headings);

    void addRow(std::vector<std::string> cells);
    [[nodiscard]] bool empty() const { return rows_.empty(); }
    [[nodiscard]] std::size_t size() const { return rows_.size(); }
    void print() const;

private:
    std::vector<std::string> headings_;
    std::vector<std::vector<std::string>> rows_;
};

/// Replaces control characters, which could act as terminal escapes.
[[nodiscard]] std::string withoutControls(std::string text);

/// Returns the columns that a UTF-8 text takes on a terminal.
[[nodiscard]] std::size_t displayWidth(std::string_view utf8);

/// A length in drawing units, rounded to 0.001, in the shortest form: "4200", "1300.5".
[[nodiscard]] std::string shortNumber(double value);

} // namespace zu::app
