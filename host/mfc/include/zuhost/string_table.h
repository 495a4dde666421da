#pragma once

#include <zuhost/platform/export.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace zuhost {

/// Texts by id, stored in UTF-8 as lines `id = "text"` with the escapes \n, \t, \" and \\. Blank lines, lines
/// that begin with "#" and a byte-order mark are ignored.
class ZUHOST_API StringTable {
public:
    /// Skips malformed lines; stores the number of the first one, counted from 1, in `firstBadLine`, or 0
    /// when there is none.
    static StringTable parse(std::string_view utf8, std::size_t* firstBadLine = nullptr);

    /// Returns null when there is no text with that id.
    [[nodiscard]] const std::wstring* find(unsigned id) const;
    [[nodiscard]] const std::map<unsigned, std::wstring>& texts() const { return texts_; }
    /// Returns the table in the form that `parse` reads.
    [[nodiscard]] std::string format() const;

private:
    std::map<unsigned, std::wstring> texts_;
};

} // namespace zuhost
