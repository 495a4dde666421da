#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace zuhost {

/// Texts by id, written in UTF-8 as lines `id = "text"`, with \n, \t, \" and \\ in the text, blank lines and
/// lines that begin with "#" between them. A byte-order mark in front does not count.
class StringTable {
public:
    /// Lines that are no entries are left out; `firstBadLine` (counted from 1) receives the first of them, or
    /// 0.
    static StringTable parse(std::string_view utf8, std::size_t* firstBadLine = nullptr);

    /// Nullptr when there is no text of that id.
    [[nodiscard]] const std::wstring* find(unsigned id) const;
    [[nodiscard]] const std::map<unsigned, std::wstring>& texts() const { return texts_; }
    /// The table in the form that `parse` reads.
    [[nodiscard]] std::string format() const;

private:
    std::map<unsigned, std::wstring> texts_;
};

} // namespace zuhost
