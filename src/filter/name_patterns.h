#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zu {

/// Names with wildcards, separated by commas: "*" stands for any characters, "?" for one. The case of ASCII
/// letters does not matter.
class NamePatterns {
public:
    explicit NamePatterns(std::wstring_view list);

    /// Returns true when a pattern matches the whole name. The time grows with the product of both lengths at
    /// most.
    [[nodiscard]] bool match(std::wstring_view name) const;

private:
    std::vector<std::wstring> patterns_;
};

} // namespace zu
