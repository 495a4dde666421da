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

/// Returns whether a look-up finds the pair after it is saved; ZuComn_SaveLinkInfo lists what it rejects.
[[nodiscard]] bool isReadable(const LinkPair& pair);

/// Returns the bytes of a link information file with readable pairs, whose keys differ, merged into it. A
/// matching record is replaced in its place, other records keep their bytes; pairs without a record follow
/// the last record, before a line "END". A line without "|" belongs to the next line with one; blank lines
/// and lines that no record follows are dropped. Comments, and everything from "END" on, are preserved
/// verbatim. Returns nullopt when the file's encoding cannot represent a character or reads one of a key back
/// as another, or when a line or a new record exceeds the length limit of table lines.
[[nodiscard]] std::optional<std::string> mergeLinks(std::string_view file,
                                                    const std::vector<LinkPair>& pairs);

} // namespace zu
