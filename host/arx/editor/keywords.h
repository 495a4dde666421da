#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zuhost {

/// The keywords that an input function accepts.
class Keywords {
public:
    Keywords() = default;
    /// Names separated by blanks, in the form of acedInitGet.
    explicit Keywords(std::wstring_view list);

    [[nodiscard]] bool empty() const { return keywords_.empty(); }
    /// Returns the keyword that the word stands for; nullopt when there is none. The first of several wins.
    [[nodiscard]] std::optional<std::wstring> find(std::wstring_view word) const;

private:
    struct Keyword {
        std::wstring name;
        std::size_t first = 0;    ///< Where an abbreviation may begin beside the name's start.
        std::size_t shortest = 0; ///< The size that an abbreviation from the start has at least.
        std::wstring result;
        bool isGlobal = false; ///< Entered with the prefix "_".
    };

    static Keyword parse(std::wstring_view word);
    static bool matches(const Keyword& keyword, std::wstring_view folded);

    std::vector<Keyword> keywords_;
};

} // namespace zuhost
