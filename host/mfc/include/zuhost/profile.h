#pragma once

#include "text_file.h"

#include <zuhost/platform/export.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zuhost {

/// A profile (initialisation) file in memory: sections "[NAME]", keys "NAME=VALUE", comments ";". Unchanged
/// lines are preserved verbatim.
///
/// Names are compared ignoring the case of ASCII letters. White space around names and values is ignored.
/// Quotes around a value are part of it here; the platform's functions remove them. Of duplicate sections or
/// keys the first applies.
class ZUHOST_API Profile {
public:
    Profile() = default;
    explicit Profile(std::string_view bytes);

    [[nodiscard]] std::optional<std::wstring> value(std::wstring_view section, std::wstring_view key) const;
    [[nodiscard]] std::vector<std::wstring> sections() const;
    [[nodiscard]] std::vector<std::wstring> keys(std::wstring_view section) const;

    /// Sets a value, adding missing keys and sections. Returns false and changes nothing when the file's
    /// encoding cannot represent the text.
    bool set(std::wstring_view section, std::wstring_view key, std::wstring_view value);
    /// Removes the key's line.
    void remove(std::wstring_view section, std::wstring_view key);
    /// Removes the section's heading and keys; comments stay.
    void removeSection(std::wstring_view section);

    [[nodiscard]] std::string bytes() const;

private:
    struct Line {
        enum class Kind { other, section, key, bareKey }; ///< A bare key has no "=" and no value.

        std::string bytes; ///< With its line end.
        Kind kind = Kind::other;
        std::wstring name;
        std::wstring value;
    };
    struct Range {
        std::size_t heading = 0;
        std::size_t end = 0;
    };

    static bool isKey(Line::Kind kind) { return kind == Line::Kind::key || kind == Line::Kind::bareKey; }
    [[nodiscard]] Line parsed(std::string bytes) const;
    [[nodiscard]] std::optional<Range> find(std::wstring_view section) const;
    [[nodiscard]] std::optional<std::size_t> findKey(Range range, std::wstring_view key) const;
    [[nodiscard]] std::optional<Line> newLine(const std::wstring& text) const;
    void insertKey(Range range, Line line);
    void completeLastLine();

    TextEncoding encoding_;
    bool marked_ = false;
    std::vector<Line> lines_;
};

} // namespace zuhost
