#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zu {

/// Selects fields of a line by their numbers, a text of decimal numbers separated by commas.
class ColumnSelection {
public:
    /// A null pointer selects every field.
    explicit ColumnSelection(const wchar_t* columns);
    [[nodiscard]] bool keeps(int number) const { return !numbers_ || lists(number); }

private:
    [[nodiscard]] bool lists(int number) const;

    std::optional<std::vector<int>> numbers_;
};

[[nodiscard]] inline std::wstring_view withoutTrailingSpaces(std::wstring_view text) {
    while (!text.empty() && text.back() == L' ')
        text.remove_suffix(1);
    return text;
}

/// Returns whether a line, given without its line end, is "END" in any case, which ends a table.
[[nodiscard]] bool endsTable(std::wstring_view line);

/// Returns whether the line's first character is "#".
[[nodiscard]] inline bool isComment(std::wstring_view line) {
    return line.starts_with(L'#');
}

/// Calls `take` for each kept field of the line, without trailing spaces. Fields are numbered from 1; a line
/// has one field more than separators.
template <typename Take>
void splitLine(std::wstring_view line, wchar_t separator, const ColumnSelection& columns, Take take) {
    for (int number = 1;; ++number) {
        const std::size_t end = line.find(separator);
        if (columns.keeps(number))
            take(withoutTrailingSpaces(line.substr(0, end)));
        if (end == std::wstring_view::npos)
            return;
        line.remove_prefix(end + 1);
    }
}

} // namespace zu
