#include "line_splitter.h"

#include <windows.h>

#include <algorithm>

namespace zu {

ColumnSelection::ColumnSelection(const wchar_t* columns) {
    if (columns == nullptr)
        return;
    numbers_.emplace();
    std::wstring_view left(columns);
    while (true) {
        const std::size_t comma = left.find(L',');
        numbers_->push_back(_wtoi(std::wstring(left.substr(0, comma)).c_str()));
        if (comma == std::wstring_view::npos)
            return;
        left.remove_prefix(comma + 1);
    }
}

bool ColumnSelection::lists(int number) const {
    return std::find(numbers_->begin(), numbers_->end(), number) != numbers_->end();
}

bool endsTable(std::wstring_view line) {
    return line.size() == 3 && _wcsicmp(std::wstring(line).c_str(), L"END") == 0;
}

} // namespace zu
