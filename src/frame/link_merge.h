#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zu {

struct LinkPair {
    std::wstring key;
    std::wstring value;
};

/// The bytes of a link information file after the pairs, whose keys differ, were merged into it: a matching
/// record is written anew in its place, other records keep their bytes, pairs without a record follow at the
/// end. A line without "|" belongs to the next line with one; blank lines and lines that nothing follows go.
/// Nullopt when a character can't be held by the file's encoding, or a line or a new record is longer than
/// lines of tables may be.
[[nodiscard]] std::optional<std::string> mergeLinks(std::string_view file,
                                                    const std::vector<LinkPair>& pairs);

} // namespace zu
