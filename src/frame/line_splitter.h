#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zu {

/// Which fields of a line are kept, told by a text of decimal numbers parted by commas.
class ColumnSelection {
public:
    /// Null keeps every field.
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

/// Gives each kept field of the line, without trailing spaces, to `take`. Fields are numbered from 1; the
/// line has one more than separators.
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
